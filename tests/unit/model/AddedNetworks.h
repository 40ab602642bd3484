#pragma once

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"

#include <memory>
#include <string>

namespace test {

inline std::unique_ptr<WifiNetwork> networkWithSsid(const char* ssid) {
    auto network = std::make_unique<WifiNetwork>();
    network->setSsid("another"); // so that an empty SSID can be set
    network->setSsid(ssid);
    return network;
}

/// Adds a network with this SSID. False when the list refuses it.
inline bool add(WifiNetworkList& list, const char* ssid) {
    auto network = networkWithSsid(ssid);
    const bool added = list.addNetworkToList(network.get());
    if (added)
        static_cast<void>(network.release()); // the list owns it
    return added;
}

} // namespace test
