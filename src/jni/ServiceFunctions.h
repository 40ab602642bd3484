#pragma once

#include "Export.h"
#include "platform/ErrorHandler.h"

/// The operations of the library for native callers, under their plain names.
///
/// Each takes the caller's error sink first (may be null). Results are integers, non-zero for
/// success. Texts handed back are made with new[] and freed by the caller with delete[]. Any thread
/// may call.
extern "C" {

/// Prepares the certificate store. Always succeeds: there is nothing to prepare.
/// @return 1, or 0 where the driver cannot be had; `errors` is not used
PLATWIFI_API int hashCACertificates(ErrorHandler* errors);

/// Whether the supplicant runs: see WifiUtil::isWifiEnabled().
/// @param iface  interface name, or null to look for the supplicant's pid file
/// @return non-zero when it runs; `errors` is not used
PLATWIFI_API int isWifiEnabled(ErrorHandler* errors, const char* iface);

/// Scans and hands back the access points found: blocks for a second at least, about 16 s at most.
/// @param iface     interface name
/// @param listOut   receives a new array of `capacity` pointers; the first `*count` are the lines
///                  of the client (BSSID, frequency in MHz, signal in dBm, flags and SSID, separated
///                  by tabs), the rest null
/// @param capacity  most lines wanted
/// @param count     receives how many there are
/// @return 1 with a list, which the caller frees entry by entry and then whole; 0 otherwise. When
///         the scan failed nothing was touched; when reading its result failed, `*listOut` is null and
///         `*count` 0. `errors` is not used
PLATWIFI_API int discoverNetworks(ErrorHandler* errors, const char* iface, char*** listOut,
                                  unsigned char capacity, unsigned char* count);
}
