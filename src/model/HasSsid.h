#pragma once

#include "model/WifiNetwork.h"

#include <cstring>

namespace platwifi {

/// Whether there is a network and it has this SSID, byte for byte. An unset SSID is like no other.
inline bool hasSsid(const WifiNetwork* network, const char* ssid) {
    const char* const own = network ? network->getSsid() : nullptr;
    return own && ssid && std::strcmp(own, ssid) == 0;
}

} // namespace platwifi
