#pragma once

#include <string>
#include <vector>

class WifiUtil;

namespace cli {

/// The library's driver of the supplicant's client. @throws Failure if there is no memory for it
WifiUtil& driver();

// Lists that one command of the client prints each. They cost less than the settings, which need many
// commands, and do not attach to the shared memory. Empty if the supplicant does not answer.

std::vector<std::string> listedAdapters();

/// A network as the supplicant lists it.
struct ListedNetwork {
    std::string ssid; ///< its bytes
    bool isAvoided;   ///< disabled by the supplicant for some time, after an authentication failure
};

/// @param ok  receives whether the supplicant has answered
std::vector<ListedNetwork> listedNetworks(const std::string& iface, bool& ok);

} // namespace cli
