#pragma once

#include <map>
#include <set>
#include <string>

class WifiNetwork;
class WifiNetworkList;
class WifiUtil;

namespace platwifi {

class ReplyLines;

/// Networks whose number in the supplicant is not known.
using UnnumberedNetworks = std::set<const WifiNetwork*>;

/// The SSIDs by which the supplicant knows networks that may have another one in memory by now.
using KnownSsids = std::map<const WifiNetwork*, std::string>;

/// Gives every network of `list` the number that the first one with its SSID has in a reply to
/// list_networks. The caller holds the lock of the list.
/// @param known       where a network is in it, that SSID counts
/// @param unnumbered  gets the networks that the reply does not name; their numbers stay
void takeNumbers(const ReplyLines& reply, WifiNetworkList& list, const KnownSsids& known,
                 UnnumberedNetworks& unnumbered);

/// Asks the supplicant once for its networks and does the same with its answer.
/// @param iface  the adapter whose networks `list` holds
/// @return false when the supplicant did not answer: nothing changed
bool confirmNumbers(WifiUtil& util, const char* iface, WifiNetworkList& list,
                    const KnownSsids& known, UnnumberedNetworks& unnumbered);

/// The SSIDs of a list after a save. A network whose SSID is still to be written is known by its old
/// one, if it has any in `before`. The caller holds the lock of the list.
KnownSsids knownAfterSave(const WifiNetworkList& list, const KnownSsids& before);

} // namespace platwifi
