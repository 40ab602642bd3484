#pragma once

#include <cstddef>
#include <string>
#include <vector>

class WifiUtil;

namespace platwifi {

class ReplyLines;

/// Lines of a reply as the client printed them.
using Lines = std::vector<std::string>;

// WifiUtil returns a line of more than 127 characters in pieces; these functions join them. A piece of
// fewer characters ends its line. After a full piece, the next piece continues the line unless it has the form
// of a new line. Null entries are skipped.

/// Joins the pieces of list_networks. A new line begins with digits and a tab; before the BSSID column is
/// complete, every piece continues the line.
Lines wholeListLines(const ReplyLines& pieces);

/// Joins the pieces of scan_results. A new line begins with a BSSID and a tab.
Lines wholeScanLines(const ReplyLines& pieces);

/// Joins the pieces of status. A new line begins with a key, which is no hexadecimal number, and an
/// equals sign.
Lines wholeStatusLines(const ReplyLines& pieces);

// The queries of WifiUtil, with whole lines as their result. False when the supplicant did not answer.

/// All configured networks, up to 255 pieces; under `modern` as many as there are.
bool queryList(WifiUtil& util, const char* iface, Lines& lines);

/// A part of it: the first one, or the lines behind the network with the id unless that is null (see readList()).
bool queryListPart(WifiUtil& util, const char* iface, const char* id, Lines& part);

/// The first access points of the last scan, 32 at most or as many as are asked for.
bool queryScan(WifiUtil& util, const char* iface, Lines& lines);
bool queryScan(WifiUtil& util, const char* iface, Lines& lines, std::size_t most);

/// The first STATUS_LINES lines of the status.
bool queryStatus(WifiUtil& util, const char* iface, Lines& lines);

} // namespace platwifi
