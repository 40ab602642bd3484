#pragma once

#include <string>
#include <vector>

namespace cli {

// What the supplicant lists, asked for with one command each: the settings, which take many, are not
// loaded and no memory is shared. Empty where it does not answer.

std::vector<std::string> listedAdapters();

/// A network as the supplicant lists it.
struct ListedNetwork {
    std::string ssid; ///< in the client's notation
    bool isAvoided;   ///< for a while, because it has refused this device
};

/// @param ok  receives whether the supplicant has answered
std::vector<ListedNetwork> listedNetworks(const std::string& iface, bool& ok);

} // namespace cli
