#pragma once

#include "model/WifiTypes.h"

#include <string>

namespace cli {

/// Judges an attempt to connect by the states that the supplicant reports one after another.
class ConnectionAttempt {
public:
    /// To be called with each state that the supplicant reports.
    /// @param isOnNetwork  whether it is the state of the wanted network; the supplicant names the
    ///                     network only from the association on
    void onState(WpaState state, bool isOnNetwork);

    /// To be called each time the supplicant lists the network.
    /// @param isAvoided  whether it avoids the network for some time, as it does after a refusal.
    ///                   That counts only if it did not avoid the network before.
    void onListed(bool isAvoided);

    bool isComplete() const { return m_isComplete; }

    /// Whether the access point has refused this device. The supplicant will go on trying.
    bool isRefused() const { return m_isRefused; }

    WpaState last() const { return m_last; }

    /// The likely cause of a failure, judged by the states, and the next step.
    std::string likelyCause() const;

private:
    WpaState m_last = WPA_STATE_UNKNOWN;
    WpaState m_furthest = WPA_STATE_UNKNOWN; ///< of those that belong to this attempt
    bool m_wasAssociated = false;
    bool m_wasTried = false; ///< the network was listed as not avoided
    bool m_isComplete = false;
    bool m_isRefused = false;
};

} // namespace cli
