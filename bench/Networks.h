#pragma once

#include <string>

namespace bench {

constexpr const char* WLAN = "wlan0";
constexpr unsigned int NETWORK_COUNT = 32;

/// A network in the middle of the list, and its BSSID.
constexpr const char* SOME_SSID = "network 16";
constexpr const char* SOME_BSSID = "02:00:00:00:00:16";

/// As many networks of several kinds as the library can hold, as text of the configuration file.
std::string networks();

} // namespace bench
