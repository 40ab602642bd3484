#pragma once

#include <algorithm>
#include <chrono>
#include <ctime>

namespace platform {

/// A reading of the monotonic clock as system calls take it. One from before the clock's start is that
/// start: the kernel refuses negative times.
inline timespec toTimespec(std::chrono::steady_clock::time_point time) noexcept {
    using namespace std::chrono;
    const auto sinceStart = std::max(time.time_since_epoch(), steady_clock::duration::zero());
    const auto whole = duration_cast<seconds>(sinceStart);
    timespec result{};
    result.tv_sec = static_cast<time_t>(whole.count());
    result.tv_nsec = static_cast<long>(nanoseconds(sinceStart - whole).count());
    return result;
}

} // namespace platform
