#pragma once

class WifiNetwork;

namespace platwifi {

/// The flag that the supplicant's list shows for a network. "[TEMP-DISABLED]" counts as none.
enum class ListFlag { NONE, DISABLED, CURRENT };

/// The flag anywhere in a line of the list; DISABLED goes before CURRENT.
ListFlag listFlagIn(const char* line);

/// Gives the network the status that its flag stands for.
void setStatusByFlag(WifiNetwork& network, ListFlag flag);

/// Reads number, SSID and BSSID of a network from a line of the list, which separates them by tabs.
/// A network without SSID has no column for it; it is given a placeholder.
/// @return false for a line that tells of no network; some of the above may have been read
bool readListLine(const char* line, WifiNetwork& network);

} // namespace platwifi
