#pragma once

namespace cli {

/// The supplicant's word for a WpaState; "UNKNOWN" for any other number.
const char* wordForState(unsigned int state);

} // namespace cli
