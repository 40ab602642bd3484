#pragma once

#include <set>

class WifiNetwork;
class WifiNetworkList;
class WifiUtil;

namespace platwifi {

/// Networks whose number in the supplicant is not known.
using UnnumberedNetworks = std::set<const WifiNetwork*>;

/// Asks the supplicant once for its networks and gives every network of `list` the number that the
/// first one with its SSID has there. The caller holds the lock of the list.
/// @param iface       the adapter whose networks `list` holds
/// @param unnumbered  gets the networks that the supplicant did not name; their numbers stay
/// @return false when the supplicant did not answer: nothing changed
bool confirmNumbers(WifiUtil& util, const char* iface, WifiNetworkList& list,
                    UnnumberedNetworks& unnumbered);

} // namespace platwifi
