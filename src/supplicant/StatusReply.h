#pragma once

#include "model/WifiTypes.h"

namespace platwifi {

/// The supplicant's state as the lines of a status reply tell it: the first line that holds
/// "wpa_state=" decides. Null entries are passed over.
WpaState stateOf(const char* const lines[], unsigned int count);

} // namespace platwifi
