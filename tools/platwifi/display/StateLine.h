#pragma once

#include "display/Console.h"

#include <string>

namespace cli {

/// Tells on standard output what happens, one word after another, as it happens; a new line begins where
/// the terminal ends.
class StateLine {
public:
    StateLine(const Console& console, const std::string& beginning);

    /// Ends the line.
    ~StateLine();

    StateLine(const StateLine&) = delete;
    StateLine& operator=(const StateLine&) = delete;

    /// @param word  told only when it is another than the last one
    void tell(const std::string& word);

private:
    const unsigned int m_width;
    unsigned int m_column;
    std::string m_last;
};

} // namespace cli
