#pragma once

#include "settings/replies/ListRecord.h"

#include <optional>
#include <string>

class WifiNetwork;

namespace platwifi {

/// The flag that the supplicant's list shows for a network. "[TEMP-DISABLED]" counts as none.
enum class ListFlag { NONE, DISABLED, CURRENT };

/// The flag in a line of the list, DISABLED before CURRENT: anywhere in it under the profile `device`, in its
/// column under `modern`.
ListFlag listFlagIn(const char* line);

/// Gives the network the status that its flag stands for.
void setStatusByFlag(WifiNetwork& network, ListFlag flag);

// The readers of a line. All of them take its columns from Columns.h; they differ on purpose.

/// Reads network id, SSID and BSSID of a network, as a load does.
///
/// Empty columns count under `modern`, and do not under `device` (see listRecord()). An SSID that is missing is
/// NO_SSID, a BSSID NO_BSSID.
/// @return false for a line without these columns; the network is unchanged then
bool readListLine(const std::string& line, WifiNetwork& network);

/// The network id in a line, as a status refresh reads it: the number that the first column which is not
/// blank begins with, 0 where that is no number. None for a line of tabs and blanks alone.
std::optional<int> listedId(const std::string& line);

} // namespace platwifi
