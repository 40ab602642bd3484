#pragma once

#include <string>

namespace bench {

constexpr const char* WLAN = "wlan0";
constexpr unsigned int NETWORK_COUNT = 32;

/// A network in the middle of the list, and its BSSID.
constexpr const char* SOME_SSID = "network 16";
constexpr const char* SOME_BSSID = "02:00:00:00:00:16";

/// Networks of eight kinds in turn, as text of the configuration file.
/// @param count  1000 at most; the library holds 32, and 255 under the profile `modern`
std::string networks(unsigned int count = NETWORK_COUNT);

/// The SSID of the network with this number, from 0 on.
std::string ssidOf(unsigned int number);

} // namespace bench
