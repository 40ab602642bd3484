// Only in builds for the thread sanitizer. That of clang 14 does not support
// pthread_mutex_clocklock(), and would report races between threads that hold the lock. It supports
// pthread_mutex_trylock().

#include <cerrno>
#include <ctime>
#include <pthread.h>

namespace {

constexpr timespec PAUSE{0, 200'000};

bool isBefore(const timespec& time, const timespec& deadline) {
    return time.tv_sec != deadline.tv_sec ? time.tv_sec < deadline.tv_sec
                                          : time.tv_nsec < deadline.tv_nsec;
}

} // namespace

extern "C" __attribute__((visibility("default"))) int
pthread_mutex_clocklock(pthread_mutex_t* mutex, clockid_t clock,
                        const timespec* deadline) noexcept {
    for (;;) {
        if (const int error = pthread_mutex_trylock(mutex); error != EBUSY)
            return error;
        timespec now{};
        clock_gettime(clock, &now);
        if (!isBefore(now, *deadline))
            return ETIMEDOUT;
        nanosleep(&PAUSE, nullptr);
    }
}
