#pragma once

#include "events/Event.h"

#include <optional>
#include <string>

namespace cli {

/// Adds to an event what earlier events said: the SSID, which the supplicant names only at the beginning of an
/// attempt to connect; and whether a connection is a new one or the same network at another access point.
class ConnectionHistory {
public:
    /// To be called with each event, in order.
    void complete(Event& event);

private:
    void onConnected(Event& event);
    void onDisconnected(Event& event);
    void onFailed(Event& event) const;

    /// An access point, and the network that it belongs to.
    struct Place {
        std::string bssid;
        std::string ssid;           ///< "" if it is not known
        std::optional<int> network; ///< the same
    };

    Place m_attempt; ///< the last one that was tried
    Place m_current; ///< the one of the connection; its BSSID is "" without one
};

} // namespace cli
