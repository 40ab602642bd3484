#include "platform/PlatformUtil.h"

#include "common/MonotonicTime.h"
#include "common/ThreadName.h"

#include <cerrno>
#include <unistd.h>

namespace {

bool heldByCaller(const PlatformMutex& mutex) noexcept {
    return mutex.__data.__owner == PlatformUtil::threadId();
}

} // namespace

void platform::nameThread(const char* name) noexcept {
    pthread_setname_np(pthread_self(), name);
}

int PlatformUtil::lockMutexUntil(PlatformMutex* mutex,
                                 std::chrono::steady_clock::time_point deadline) noexcept {
    if (!mutex)
        return EINVAL;
    const timespec time = platform::toTimespec(deadline);
    return pthread_mutex_clocklock(mutex, CLOCK_MONOTONIC, &time);
}

int PlatformUtil::releaseMutex(PlatformMutex* mutex) noexcept {
    if (!mutex)
        return EINVAL;
    int result = 0;
    while (result == 0 && heldByCaller(*mutex))
        result = pthread_mutex_unlock(mutex);
    return result;
}

int PlatformUtil::threadId() noexcept {
    return gettid();
}
