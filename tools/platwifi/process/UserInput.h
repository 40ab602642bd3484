#pragma once

#include <string>

namespace cli {

/// Where values come from that are not among the assignments of an operation.
class UserInput {
public:
    UserInput() = default;
    virtual ~UserInput() = default;
    UserInput(const UserInput&) = delete;
    UserInput& operator=(const UserInput&) = delete;

    /// Whether the user can be asked for a value that was not given.
    virtual bool canAsk() const = 0;

    /// Asks the user for a value that may be seen.
    /// @param name  of the property
    /// @throws Failure without an answer
    /// @throws Interrupted
    virtual std::string answerTo(const std::string& name) const = 0;

    /// How a value that was not given can be given, for a message.
    /// @param name     of the property
    /// @param example  how the command line takes it
    virtual std::string wayToGive(const std::string& name, const std::string& example) const = 0;

    /// Gives a secret.
    /// @param name    of the property
    /// @param source  the value of its assignment, which names where the secret is
    /// @throws WrongUse, Failure, Interrupted
    virtual std::string secretOf(const std::string& name, const std::string& source) const = 0;
};

} // namespace cli
