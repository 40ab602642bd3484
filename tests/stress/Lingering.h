#pragma once

#include <atomic>
#include <cstdint>

namespace stress {

/// Makes this process hold the locks of the shared block for some milliseconds, so that a process
/// that is killed or stopped at a random moment often holds one.
/// @param holds  1 while it does, else 0
void linger(std::uint32_t seed, std::atomic<std::uint32_t>& holds);

} // namespace stress
