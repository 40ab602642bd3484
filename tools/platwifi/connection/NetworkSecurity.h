#pragma once

#include <string>

class WifiNetwork;

namespace cli {

/// What decides whether a configured network fits an access point.
struct NetworkSecurity {
    /// Reads the fields of a network. The caller holds the lock of the settings.
    static NetworkSecurity of(const WifiNetwork& network);

    unsigned int keyManagement = 0; ///< a set of KeyManagement
    unsigned int protocols = 0;     ///< a set of Protocol; 0 for all
    bool hasWepKey = false;
    bool protectsFrames = false; ///< management frame protection is optional or required
    bool isHidden = false;
    std::string words; ///< for a message
};

/// What an access point advertises.
struct AccessPointSecurity {
    /// @param flags  of a scan, such as "[WPA2-PSK+SAE-CCMP][ESS]"
    static AccessPointSecurity of(const std::string& flags);

    unsigned int keyManagement = 0; ///< a set of KeyManagement; NONE without a protocol
    unsigned int protocols = 0;     ///< a set of Protocol
    bool isWep = false;
    bool requiresProtection = false; ///< of management frames: see requiresProtection()
    std::string words;               ///< for a message
};

/// Whether an access point requires management frame protection.
/// @param elements  the information elements of its beacon, in hexadecimal
bool requiresProtection(const std::string& elements);

} // namespace cli
