#pragma once

#include <functional>

class WifiNetwork;
class WifiUtil;

namespace platwifi {

/// Hears of every field that was sent to the supplicant, and whether it took the value.
using FieldObserver = std::function<void(const char* key, const char* value, bool accepted)>;

/// Writes the dirty fields of a network to the supplicant, one client command a field (two for the
/// BSSID), and clears their flags, whether or not the supplicant takes the values. A field that has
/// nothing to write yet (no SSID, an empty set) stays dirty; so does the channel, which the
/// supplicant chooses.
///
/// Nothing is thrown; where memory has run out, the process ends.
/// @param iface    the adapter that commands are for
/// @param network  its id must be the one that the supplicant knows it by; the caller holds the lock of
///                 its list
/// @param sent     is called after each command; may be empty
void saveDirtyFields(WifiUtil& util, const char* iface, WifiNetwork& network,
                     const FieldObserver& sent = {}) noexcept;

} // namespace platwifi
