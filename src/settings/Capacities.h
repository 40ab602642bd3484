#pragma once

namespace platwifi {

// How many lines of a reply the settings take.

constexpr unsigned char ADAPTER_LINES = 2;
constexpr unsigned char NETWORK_LINES = 32; ///< of the configured networks, and of those in range
constexpr unsigned char STATUS_LINES = 16;

} // namespace platwifi
