#pragma once

#include <atomic>
#include <cstdint>

namespace stress {

/// Makes this process hold the locks of the shared block for up to some milliseconds, so that a process
/// that is killed or stopped at random often holds one.
/// @param holds  set while it does
void linger(std::uint32_t seed, std::atomic<std::uint32_t>& holds);

} // namespace stress
