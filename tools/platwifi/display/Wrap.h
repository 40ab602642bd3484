#pragma once

#include <string>
#include <vector>

namespace cli {

/// The lines of a printable text, none of which takes more than `cells`: broken at blanks, which
/// then go; inside a word only where it does not fit on a line of its own. One line at least.
std::vector<std::string> wrapped(const std::string& text, unsigned int cells);

} // namespace cli
