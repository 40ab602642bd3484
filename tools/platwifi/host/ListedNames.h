#pragma once

#include <string>
#include <vector>

namespace cli {

// What the supplicant lists, asked for with a command or two: the settings, which take many, are not
// loaded and no memory is shared. Empty where it does not answer.

std::vector<std::string> listedAdapters();

/// The networks of the first adapter, each as it may be typed: as it is where a terminal can show it
/// and nothing in it looks like an escape, in the client's notation otherwise.
std::vector<std::string> listedSsids();

} // namespace cli
