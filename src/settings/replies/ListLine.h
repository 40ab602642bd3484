#pragma once

class WifiNetwork;

namespace platwifi {

/// How the supplicant marks a network in its list. "[TEMP-DISABLED]" is none of these marks.
enum class ListMark { NONE, DISABLED, CURRENT };

/// The mark anywhere in a line of the list.
ListMark markIn(const char* line);

/// Gives the network the status that its mark stands for.
void setMarkedStatus(WifiNetwork& network, ListMark mark);

/// Reads number, SSID and BSSID of a network from a line of the list, which separates them by tabs.
/// A network without SSID has no column for it; it is given a placeholder.
/// @return false for a line that tells of no network; some of the above may have been read
bool readListLine(const char* line, WifiNetwork& network);

} // namespace platwifi
