#pragma once

#include "settings/replies/WholeLines.h"

#include <optional>
#include <string>

namespace platwifi {

/// A network as the supplicant lists it.
struct ListedSsid {
    std::optional<unsigned char> id; ///< none for what is no number, or above 255
    std::string printed;             ///< the SSID as the client prints it; empty for none
};

/// The network of a whole line of list_networks; none for a line without columns.
std::optional<ListedSsid> listedSsid(const std::string& line);

/// The SSID as the client prints it: what is not printable ASCII stands there as an escape.
std::string printedSsid(const std::string& ssid);

} // namespace platwifi
