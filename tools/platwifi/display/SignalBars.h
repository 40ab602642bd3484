#pragma once

#include <string>

namespace cli {

/// A signal as four cells, one a quarter: blocks that grow where the terminal can show them.
/// @param percent  0 to 100
std::string signalBars(int percent, bool hasBlocks);

/// Whether the user's locale is one of UTF-8.
bool isUtf8Locale();

} // namespace cli
