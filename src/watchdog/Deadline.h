#pragma once

#include <algorithm>
#include <chrono>

namespace platwifi {

/// The time of the monotonic clock in so many seconds. Some decades are the most: beyond that, the time
/// of a 32-bit system would start anew.
inline std::chrono::steady_clock::time_point deadlineAfter(unsigned int seconds) noexcept {
    constexpr unsigned int LONGEST = 1U << 30;
    return std::chrono::steady_clock::now() + std::chrono::seconds(std::min(seconds, LONGEST));
}

} // namespace platwifi
