#pragma once

#include <string>

namespace cli {

/// What an access point offers, read from the flags of a scan. Sets of KeyManagement.
struct ScanFlags {
    /// @param flags  as the client prints them, such as "[WPA2-PSK+SAE-CCMP][ESS]"
    static ScanFlags of(const std::string& flags);

    unsigned int rsn = 0; ///< by RSN, which is WPA2 and WPA3
    unsigned int wpa = 0; ///< by the first version of WPA
    bool hasRsn = false;  ///< also where no method of it is known
    bool hasWpa = false;  ///< the same
    bool isWep = false;

    /// The access point is open, and another one with a hidden name offers OWE for the same network.
    bool hasOweBeside = false;

    bool isOpen() const { return !hasRsn && !hasWpa && !isWep; }
};

} // namespace cli
