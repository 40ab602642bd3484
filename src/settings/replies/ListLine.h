#pragma once

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
/// Under the profile `device` empty columns do not count. A second column that can be a BSSID is one, and the
/// SSID then is NO_SSID. The id is kept as one byte: 256 is 0, and so is what is no number.
///
/// Under `modern` the columns are id, SSID and BSSID. An empty SSID is NO_SSID. A line without an id from 0 to
/// 255 is none.
/// @return false for a line without these columns; the network is unchanged then
bool readListLine(const std::string& line, WifiNetwork& network);

/// The network id in a line, as a status refresh reads it: the number that the first column which is not
/// blank begins with, 0 where that is no number. None for a line of tabs and blanks alone.
std::optional<int> listedId(const std::string& line);

/// A network as the supplicant lists it.
struct ListedSsid {
    std::optional<unsigned char> id; ///< none for what is no number, or above 255
    std::string printed;             ///< the SSID as the client prints it; empty for none
};

/// The network of a whole line, as it is looked for when network ids are confirmed: empty columns count.
/// None for a line without columns.
std::optional<ListedSsid> listedSsid(const std::string& line);

} // namespace platwifi
