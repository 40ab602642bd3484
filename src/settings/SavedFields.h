#pragma once

class WifiNetwork;
class WifiUtil;

namespace platwifi {

/// Writes the dirty fields of a network to the supplicant, one client command a field (two for the
/// BSSID), and clears their flags, whether or not the supplicant takes the values. A field that has
/// nothing to write yet (no SSID, an empty set) stays dirty; so does the channel, which the
/// supplicant chooses.
///
/// Nothing is thrown; where memory has run out, the process ends.
/// @param iface    the adapter that commands are for
/// @param network  its number must be the one that the supplicant knows it by; the caller holds the
///                 lock of its list
void saveDirtyFields(WifiUtil& util, const char* iface, WifiNetwork& network) noexcept;

} // namespace platwifi
