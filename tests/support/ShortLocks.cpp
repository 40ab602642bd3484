#include "support/ShortLocks.h"

#include "platform/PlatformUtil.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <pthread.h>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

std::atomic<int> timeoutCount{0};
std::atomic<int> longestWait{0}; // in milliseconds

timespec timeIn(Clock::duration wait) {
    const auto time = Clock::now().time_since_epoch() + wait;
    const auto whole = std::chrono::duration_cast<std::chrono::seconds>(time);
    timespec result{};
    result.tv_sec = static_cast<time_t>(whole.count());
    result.tv_nsec = static_cast<long>(std::chrono::nanoseconds(time - whole).count());
    return result;
}

} // namespace

int PlatformUtil::lockMutexUntil(PlatformMutex* mutex, Clock::time_point deadline) noexcept {
    const Clock::duration wait = std::max(deadline - Clock::now(), Clock::duration::zero());
    const auto asked = std::chrono::ceil<std::chrono::milliseconds>(wait);
    longestWait = std::max(longestWait.load(), static_cast<int>(asked.count()));
    const timespec until = timeIn(wait / 100);
    const int result = pthread_mutex_clocklock(mutex, CLOCK_MONOTONIC, &until);
    if (result == ETIMEDOUT)
        ++timeoutCount;
    return result;
}

namespace test {

void ShortLocks::reset() {
    timeoutCount = longestWait = 0;
}

int ShortLocks::timeouts() {
    return timeoutCount;
}

void ShortLocks::awaitTimeouts(int count) {
    while (timeoutCount < count)
        std::this_thread::yield();
}

std::chrono::milliseconds ShortLocks::longest() {
    return std::chrono::milliseconds(longestWait);
}

} // namespace test
