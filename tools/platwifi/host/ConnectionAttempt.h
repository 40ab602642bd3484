#pragma once

#include "model/WifiTypes.h"

#include <string>

namespace cli {

/// How a connection comes about, or does not, by the states that are seen on the way.
class ConnectionAttempt {
public:
    /// What the supplicant does now.
    /// @param isOnNetwork  whether it is on the network that is wanted, which it tells from the
    ///                     association on
    void saw(WpaState state, bool isOnNetwork);

    /// Whether the supplicant avoids the network for a while, as it does after a refusal. One that
    /// was so from the beginning says nothing about this attempt.
    void sawAvoidance(bool isAvoided);

    bool isComplete() const { return m_isComplete; }

    /// Whether the network has turned this device away: the supplicant will go on trying, in vain.
    bool isRefused() const { return m_isRefused; }

    WpaState last() const { return m_last; }

    /// Why there is no connection, as far as the states tell, and what to do.
    std::string likelyCause() const;

private:
    WpaState m_last = WPA_STATE_UNKNOWN;
    WpaState m_furthest = WPA_STATE_UNKNOWN; ///< of those on the way to this network
    bool m_wasAssociated = false;
    bool m_wasTried = false; ///< the supplicant did not avoid the network
    bool m_isComplete = false;
    bool m_isRefused = false;
};

} // namespace cli
