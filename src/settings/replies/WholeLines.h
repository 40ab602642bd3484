#pragma once

#include <string>
#include <vector>

class WifiUtil;

namespace platwifi {

class ReplyLines;

/// Lines of a reply as the client printed them.
using Lines = std::vector<std::string>;

// WifiUtil hands out a line of more than 127 characters in pieces; these put them together again. A
// piece of fewer characters ends its line. Behind a full piece the next one is the rest of the line
// unless it begins as a line of its own does; null entries are passed over.

/// Of list_networks. A line of its own begins with digits and a tab; before the BSSID column is
/// complete, whatever follows is the rest.
Lines wholeListLines(const ReplyLines& pieces);

/// Of scan_results. A line of its own begins with a BSSID and a tab.
Lines wholeScanLines(const ReplyLines& pieces);

/// Of status. A line of its own begins with a key, which is no hexadecimal number, and an equals sign.
Lines wholeStatusLines(const ReplyLines& pieces);

// The queries of WifiUtil with whole lines. False when the supplicant did not answer.

/// All configured networks, as far as 255 pieces go.
bool queryList(WifiUtil& util, const char* iface, Lines& lines);

/// The first NETWORK_LINES access points of the last scan.
bool queryScan(WifiUtil& util, const char* iface, Lines& lines);

/// The first STATUS_LINES lines of the status.
bool queryStatus(WifiUtil& util, const char* iface, Lines& lines);

} // namespace platwifi
