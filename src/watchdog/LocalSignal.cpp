#include "watchdog/LocalSignal.h"

#include "platform/Deadline.h"
#include "platform/MutexGuard.h"

#include <cerrno>
#include <utility>

namespace platwifi {

void LocalSignal::raise() noexcept {
    const MutexGuard guard(m_mutex);
    m_requested = true;
    m_condition.broadcast();
}

void LocalSignal::reset() noexcept {
    const MutexGuard guard(m_mutex);
    m_requested = false;
}

// False when the deadline has passed. The caller holds the mutex, before and after.
bool LocalSignal::waitOnce(std::chrono::steady_clock::time_point deadline) noexcept {
    const int result = m_condition.wait(m_mutex, deadline);
    if (result == EBUSY)
        PlatformUtil::lockMutex(&m_mutex);
    return result == 0 || result == EBUSY;
}

// Waits at least once, also when the signal is raised already.
int LocalSignal::check(unsigned int seconds) noexcept {
    const auto deadline = platform::deadlineAfter(seconds);
    PlatformUtil::lockMutex(&m_mutex);
    while (waitOnce(deadline) && !m_requested) {
    }
    const bool wasRequested = std::exchange(m_requested, false);
    PlatformUtil::unlockMutex(&m_mutex);
    return wasRequested ? -1 : 0;
}

} // namespace platwifi
