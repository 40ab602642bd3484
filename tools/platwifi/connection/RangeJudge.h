#pragma once

#include "connection/Diagnosis.h"
#include "connection/NetworkSecurity.h"

#include <optional>
#include <vector>

namespace cli {

/// Judges by what scans have found why the supplicant tries no access point of a network.
/// @param accessPoints  those in range that have its SSID
/// @return nothing if an access point fits
std::optional<Diagnosis> judgeRange(const NetworkSecurity& network,
                                    const std::vector<AccessPointSecurity>& accessPoints);

} // namespace cli
