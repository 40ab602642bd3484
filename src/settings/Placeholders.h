#pragma once

namespace platwifi {

/// What networks are given where the supplicant has no name or no access point for them.
constexpr const char* NO_SSID = "SSID N/A";
constexpr const char* NO_BSSID = "00:00:00:00:00:00";

} // namespace platwifi
