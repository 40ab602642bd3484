#pragma once

#include "process/Console.h"

#include <string>

namespace cli {

/// A line on standard output that grows by a word at each change of state. It continues on a new line
/// where it would be wider than the terminal.
class StateLine {
public:
    StateLine(const Console& console, const std::string& beginning);

    /// Ends the line.
    ~StateLine();

    StateLine(const StateLine&) = delete;
    StateLine& operator=(const StateLine&) = delete;

    /// Adds a word, unless it is the same as the last one.
    void add(const std::string& word);

private:
    const unsigned int m_width;
    unsigned int m_column;
    std::string m_last;
};

} // namespace cli
