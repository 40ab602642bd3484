#include "platform/PlatformUtil.h"

#include "ThreadNumber.h"
#include "common/ThreadName.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <ctime>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::hours LONGEST_WAIT{1}; // of one call: the sum must fit in a 32-bit time_t
constexpr long SECOND = 1'000'000'000;        // in nanoseconds

// The time of the clock that pthread_mutex_timedlock() goes by.
timespec realTimeAfter(std::chrono::nanoseconds wait) noexcept {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    const auto nanoseconds = time.tv_nsec + wait.count() % SECOND;
    time.tv_sec += static_cast<time_t>(wait.count() / SECOND + nanoseconds / SECOND);
    time.tv_nsec = static_cast<long>(nanoseconds % SECOND);
    return time;
}

} // namespace

void platform::nameThread(const char* /*name*/) noexcept {}

// POSIX has no lock with a deadline on the monotonic clock. After a clock that was set forward, the wait goes on; one
// that is set back makes it longer by as much.
int PlatformUtil::lockMutexUntil(PlatformMutex* mutex, Clock::time_point deadline) noexcept {
    if (!mutex)
        return EINVAL;
    for (;;) {
        const auto left = std::clamp<Clock::duration>(deadline - Clock::now(),
                                                      Clock::duration::zero(), LONGEST_WAIT);
        const timespec time = realTimeAfter(left);
        const int error = pthread_mutex_timedlock(mutex, &time);
        if (error != ETIMEDOUT || Clock::now() >= deadline)
            return error;
    }
}

// POSIX does not tell who holds a mutex. All mutexes of createMutex() and createSharedMutex() refuse to be unlocked
// by a thread that does not hold them.
int PlatformUtil::releaseMutex(PlatformMutex* mutex) noexcept {
    if (!mutex)
        return EINVAL;
    int result = 0;
    while (result == 0)
        result = pthread_mutex_unlock(mutex);
    return result == EPERM ? 0 : result;
}

// Process ids of 22 bits, as on Linux, leave 9 bits for the threads of a process. On a system with larger ones, two
// processes whose ids differ in the higher bits alone have ids in common.
int PlatformUtil::threadId() noexcept {
    const auto process = static_cast<unsigned int>(getpid());
    const unsigned int id = (process << platform::THREAD_NUMBER_BITS) | platform::threadNumber();
    return static_cast<int>(id & static_cast<unsigned int>(INT_MAX));
}
