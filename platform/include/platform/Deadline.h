#pragma once

#include "platform/Export.h"

#include <chrono>

namespace platform {

/// The time of the monotonic clock in so many seconds, as waits take it. Some decades are the most:
/// beyond that, the time of a 32-bit system would start anew.
PLATFORM_API std::chrono::steady_clock::time_point deadlineAfter(unsigned int seconds) noexcept;

} // namespace platform
