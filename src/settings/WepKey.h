#pragma once

#include "model/WifiNetwork.h"

namespace platwifi {

/// The key of one slot, as a getter for tables of fields.
template <unsigned int Slot>
const char* wepKey(const WifiNetwork& network) {
    return network.getWepKey(Slot);
}

} // namespace platwifi
