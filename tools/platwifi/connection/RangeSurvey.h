#pragma once

#include "connection/NetworkSecurity.h"

#include <string>
#include <vector>

namespace cli {

/// The access points with this SSID that the supplicant has found by its own scans.
/// @param ssid  as the library has it
std::vector<AccessPointSecurity> accessPointsOf(const std::string& iface, const std::string& ssid);

} // namespace cli
