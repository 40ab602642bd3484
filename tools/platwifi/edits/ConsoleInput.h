#pragma once

#include "process/Cancellation.h"
#include "process/UserInput.h"

namespace cli {

/// Values from standard input, where a user at a terminal is asked for them, and secrets also from files.
class ConsoleInput : public UserInput {
public:
    /// @param cancellation  ends the wait for an answer
    explicit ConsoleInput(const Cancellation& cancellation) : m_cancellation(cancellation) {}

    bool canAsk() const override;
    std::string answerTo(const std::string& name) const override;

    std::string wayToGive(const std::string& name, const std::string& example) const override;

    /// See readSecret().
    std::string secretOf(const std::string& name, const std::string& source) const override;

private:
    const Cancellation& m_cancellation;
};

} // namespace cli
