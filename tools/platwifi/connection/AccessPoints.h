#pragma once

#include "host/Host.h"
#include "host/ScanResult.h"

#include <string>
#include <vector>

namespace cli {

/// Whether access points answer to a scan that does not name their SSID.
enum class Visibility { BROADCAST, HIDDEN };

/// The access points in range, also those that earlier scans have found. Scans until there is one with this
/// SSID, a few times at most: a scan may miss a beacon.
/// @param ssid        its bytes
/// @param visibility  HIDDEN: each scan names the SSID
/// @throws Failure if the interface cannot scan
/// @throws Interrupted
std::vector<ScanResult> lookFor(Context& context, Host& host, const std::string& ssid,
                                Visibility visibility);

/// The access points in range after one scan.
/// @throws Failure if the interface cannot scan
/// @throws Interrupted
std::vector<ScanResult> scanOnce(Context& context, Host& host);

/// Those with this SSID.
std::vector<ScanResult> withSsid(const std::vector<ScanResult>& all, const std::string& ssid);

} // namespace cli
