#pragma once

#include "host/Link.h"
#include "values/Values.h"

#include <string>
#include <utility>
#include <vector>

namespace cli {

/// Values with their labels, both printable.
using Rows = std::vector<std::pair<std::string, std::string>>;

/// What is known of a connection, for a terminal.
/// @param hasBlocks  whether the signal has blocks of Unicode beside it
Rows rowsOf(const Link& link, bool hasBlocks);

/// A connection for programs, every member of it: null for what is not reported. Nothing where there is no
/// connection.
Value valueOf(const LinkState& state);

/// A span of time in its two largest units, such as "2 h 5 min".
std::string durationText(int seconds);

} // namespace cli
