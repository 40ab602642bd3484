#pragma once

#include "settings/replies/WholeLines.h"

#include <string>
#include <vector>

class WifiUtil;

namespace cli {

/// The library's driver of the supplicant's client. @throws Failure if there is no memory for it
WifiUtil& driver();

// Lists that one question to the supplicant gives each. They cost less than the settings, which need many
// commands, and do not attach to the shared memory. They do not need the library's driver either, whose first
// use costs a command. Empty if the supplicant does not answer.

std::vector<std::string> listedAdapters();

/// A network as the supplicant lists it.
struct ListedNetwork {
    std::string ssid; ///< its bytes
    bool isAvoided;   ///< disabled by the supplicant for some time, after an authentication failure
};

/// The lines of the configured networks.
/// @param ok  receives whether the supplicant has answered
platwifi::Lines listLines(const std::string& iface, bool& ok);

/// The networks of these lines, with the same parameters.
std::vector<ListedNetwork> listedNetworks(const std::string& iface, bool& ok);

} // namespace cli
