#pragma once

#include "model/WifiNetwork.h"

#include <cstring>

// Functions on one network that several folders use.

namespace platwifi {

/// The SSID and the BSSID in memory of a network that has none in the supplicant.
constexpr const char* NO_SSID = "SSID N/A";
constexpr const char* NO_BSSID = "00:00:00:00:00:00";

/// Whether there is a network and it has this SSID, byte for byte. An unset SSID equals no other.
inline bool hasSsid(const WifiNetwork* network, const char* ssid) {
    const char* const own = network ? network->getSsid() : nullptr;
    return own && ssid && std::strcmp(own, ssid) == 0;
}

/// Gives a network that is no longer the current one its status: enabled, unless it is disabled.
inline void enableUnlessDisabled(WifiNetwork& network) {
    if (network.getNetworkStatus() != NETWORK_STATUS_DISABLED)
        network.setNetworkStatus(NETWORK_STATUS_ENABLED);
}

} // namespace platwifi
