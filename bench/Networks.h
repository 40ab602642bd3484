#pragma once

#include <string>

namespace bench {

constexpr const char* WLAN = "wlan0";
constexpr unsigned int NETWORK_COUNT = 32;

/// One that is in the middle of the list, and its address.
constexpr const char* SOME_SSID = "network 16";
constexpr const char* SOME_BSSID = "02:00:00:00:00:16";

/// As many networks as the library holds, of several kinds, as the supplicant's file has them.
std::string networks();

} // namespace bench
