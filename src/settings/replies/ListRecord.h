#pragma once

#include <optional>
#include <string>

// A line of list_networks, read without regard to the profile of the process, so that the command line can
// read it as well.

namespace platwifi {

/// A network as the supplicant lists it.
struct ListedSsid {
    std::optional<unsigned char> id; ///< none for what is no number, or above 255
    std::string printed;             ///< the SSID as the client prints it; empty for none
};

/// The network of a whole line, as it is looked for when network ids are confirmed: empty columns count.
/// None for a line without columns.
std::optional<ListedSsid> listedSsid(const std::string& line);

/// A network as a load reads it.
struct ListRecord {
    unsigned char id;
    std::string printed; ///< the SSID as the client prints it; empty for none
    std::string bssid;   ///< empty for none
};

/// Reads a line as a load does.
/// @param emptyColumnsCount  what the profile does by this rule. If so, the columns are id, SSID and BSSID, and
///        a line without an id from 0 to 255 is none. If not, a second column that can be a BSSID is one, and
///        the id is kept as one byte: 256 is 0, and so is what is no number.
/// @return none for a line without these columns
std::optional<ListRecord> listRecord(const std::string& line, bool emptyColumnsCount);

} // namespace platwifi
