#pragma once

#include "model/WifiTypes.h"

namespace platwifi {

/// The state that a line names, whatever else it holds; WPA_STATE_UNKNOWN for none.
WpaState stateIn(const char* line);

/// The supplicant's state as the lines of a status reply tell it: the first line that holds
/// "wpa_state=" decides. Null entries are passed over.
WpaState stateOf(const char* const lines[], unsigned int count);

} // namespace platwifi
