// The thread sanitizer of clang 14 does not know pthread_mutex_clocklock() and would take what a thread
// does behind it for unlocked. It knows pthread_mutex_timedlock(), which waits by another clock.

#include <ctime>
#include <pthread.h>

namespace {

constexpr long NANOSECONDS = 1000000000L;

timespec now(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return time;
}

timespec normalised(timespec time) {
    time.tv_sec += time.tv_nsec / NANOSECONDS;
    time.tv_nsec %= NANOSECONDS;
    if (time.tv_nsec < 0) {
        time.tv_nsec += NANOSECONDS;
        --time.tv_sec;
    }
    return time;
}

} // namespace

extern "C" int pthread_mutex_clocklock(pthread_mutex_t* mutex, clockid_t clock,
                                       const timespec* deadline) noexcept {
    const timespec here = now(clock);
    const timespec real = now(CLOCK_REALTIME);
    const timespec there = normalised({deadline->tv_sec - here.tv_sec + real.tv_sec,
                                       deadline->tv_nsec - here.tv_nsec + real.tv_nsec});
    return pthread_mutex_timedlock(mutex, &there);
}
