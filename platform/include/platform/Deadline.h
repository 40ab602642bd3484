#pragma once

#include "platform/Export.h"

#include <chrono>

namespace platform {

/// The time of the monotonic clock after so many seconds, as a deadline for waits. Clamped to 2^30
/// s: a 32-bit time_t must not overflow.
PLATFORM_API std::chrono::steady_clock::time_point deadlineAfter(unsigned int seconds) noexcept;

} // namespace platform
