#pragma once

#include <set>

class WifiNetwork;
class WifiNetworkList;
class WifiUtil;

namespace platwifi {

class ReplyLines;

/// Networks whose number in the supplicant is not known.
using UnnumberedNetworks = std::set<const WifiNetwork*>;

/// Gives every network of `list` the number that the first one with its SSID has in a reply to
/// list_networks. The caller holds the lock of the list.
/// @param unnumbered  gets the networks that the reply does not name; their numbers stay
void takeNumbers(const ReplyLines& reply, WifiNetworkList& list, UnnumberedNetworks& unnumbered);

/// Asks the supplicant once for its networks and does the same with its answer.
/// @param iface  the adapter whose networks `list` holds
/// @return false when the supplicant did not answer: nothing changed
bool confirmNumbers(WifiUtil& util, const char* iface, WifiNetworkList& list,
                    UnnumberedNetworks& unnumbered);

} // namespace platwifi
