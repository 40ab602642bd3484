#pragma once

#include <string>
#include <vector>

namespace platwifi {

class ReplyLines;

/// A network as the supplicant lists it: its number and what the client prints for its SSID.
struct ListedSsid {
    unsigned char number;
    std::string printed; ///< empty for a network without SSID
    bool isUnnamed;      ///< whether loading takes it for a network without SSID

    /// Whether a network in memory has this SSID: as it was set (bytes), as it was loaded (what the
    /// client prints), or the name of networks without one.
    bool isOf(const std::string& ssid) const;
};

/// The networks of a reply to list_networks, in its order. Lines that name none are left out, and so
/// are numbers that a network cannot hold.
std::vector<ListedSsid> listedSsids(const ReplyLines& reply);

/// The SSID as the client prints it: what is not printable ASCII stands there as an escape.
std::string printedSsid(const std::string& ssid);

} // namespace platwifi
