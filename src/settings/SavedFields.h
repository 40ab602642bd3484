#pragma once

#include "FunctionRef.h"

class WifiNetwork;
class WifiUtil;

namespace platwifi {

/// Is called after each field that was sent to the supplicant.
/// @param accepted  whether the supplicant took the value
using FieldObserver = FunctionRef<void(const char* key, const char* value, bool accepted)>;

/// Writes the dirty fields of a network to the supplicant, one client command a field (two for the
/// BSSID), and clears their flags, whether or not the supplicant takes the values. A field that has
/// nothing to write yet (an unset SSID, an empty set) stays dirty. So does the channel, which is never
/// written: the supplicant chooses it.
///
/// Under the profile `modern` a field that the supplicant refuses, or whose client did not run, stays dirty.
///
/// Nothing is thrown; where memory has run out, the process ends.
/// @param iface    the adapter that the commands are for
/// @param network  must hold the id that the supplicant has for it; the caller holds the lock of the list
/// @param sent     may be empty
/// @return the supplicant's name of the first field that it refused; null for none. A constant
const char* saveDirtyFields(WifiUtil& util, const char* iface, WifiNetwork& network,
                            const FieldObserver& sent = {}) noexcept;

} // namespace platwifi
