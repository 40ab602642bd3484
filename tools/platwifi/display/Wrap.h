#pragma once

#include <string>
#include <vector>

namespace cli {

/// Breaks a printable text into lines of `cells` at most, at blanks, which are removed. A word is broken
/// only if it is longer than a line. A character that is wider than a line gets a line of its own.
/// @return one line at least
std::vector<std::string> wrapped(const std::string& text, unsigned int cells);

} // namespace cli
