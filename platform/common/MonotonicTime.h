#pragma once

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <ctime>

namespace platform {

/// A time of the monotonic clock, as a system call takes it. Clamped to 0: the kernel refuses
/// negative times, which occur on a host that was started a moment ago.
inline timespec toTimespec(std::chrono::steady_clock::time_point time) noexcept {
    using namespace std::chrono;
    const auto sinceStart = std::max(time.time_since_epoch(), steady_clock::duration::zero());
    const auto whole = duration_cast<seconds>(sinceStart);
    timespec result{};
    result.tv_sec = static_cast<time_t>(whole.count());
    result.tv_nsec = static_cast<long>(nanoseconds(sinceStart - whole).count());
    return result;
}

/// Blocks the calling thread until this time, also when signals arrive.
inline void sleepUntil(std::chrono::steady_clock::time_point time) noexcept {
    const timespec end = toTimespec(time);
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &end, nullptr) == EINTR) {
    }
}

} // namespace platform
