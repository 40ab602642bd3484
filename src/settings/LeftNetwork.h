#pragma once

#include "model/WifiNetwork.h"

namespace platwifi {

/// Ends the supplicant's interest in a network: it is enabled, unless it is disabled.
inline void enableUnlessDisabled(WifiNetwork& network) {
    if (network.getNetworkStatus() != NETWORK_STATUS_DISABLED)
        network.setNetworkStatus(NETWORK_STATUS_ENABLED);
}

} // namespace platwifi
