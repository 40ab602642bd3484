#pragma once

#include "model/WifiTypes.h"

#include <optional>
#include <string>

namespace cli {

/// The connection of an interface to an access point. What the supplicant or the driver does not report is
/// empty.
struct Link {
    std::string bssid;
    std::optional<int> frequency; ///< MHz
    std::optional<int> signal;    ///< dBm
    std::optional<int> speed;     ///< of sending, Mbit/s
    std::string keyManagement;    ///< in the supplicant's words
    std::string pairwiseCipher;   ///< the same
    std::string groupCipher;      ///< the same
    std::string pmf;              ///< management frame protection: a word of platwifi::PMF_WORDS
    std::string ipv4;
    std::string ipv6;                    ///< of global scope
    std::optional<int> connectedSeconds; ///< since the association
};

/// What the supplicant does on an interface.
struct LinkState {
    bool isReported = false; ///< whether the supplicant has answered
    WpaState state = WPA_STATE_UNKNOWN;
    std::string ssid;         ///< its bytes; "" where it is on no network
    std::optional<Link> link; ///< where it is connected

    /// Reads the client's replies to `status` and `signal_poll`, of which the latter counts only where there
    /// is a connection.
    static LinkState of(const std::string& status, const std::string& signal);

    /// Asks the supplicant and the system.
    static LinkState now(const std::string& iface);

    /// The same without what takes further questions: the signal, the speed, the IPv6 address and the time.
    static LinkState briefly(const std::string& iface);
};

} // namespace cli
