#pragma once

#include "platform/PlatformUtil.h"
#include "platform/SharedCondition.h"

#include <chrono>

namespace platwifi {

/// A signal between threads of this process. It stays raised until check() or reset() takes it
/// back. Any thread may call.
class LocalSignal {
public:
    LocalSignal() noexcept {
        PlatformUtil::createMutex(&m_mutex);
        m_condition.setUp(platform::SharedCondition::Reach::THIS_PROCESS);
    }

    /// No thread may be in check().
    ~LocalSignal() { PlatformUtil::destroyMutex(&m_mutex); }

    LocalSignal(const LocalSignal&) = delete;
    LocalSignal& operator=(const LocalSignal&) = delete;

    /// Raises the signal and wakes one thread in check().
    void raise() noexcept;

    /// Takes the signal back, if it is raised.
    void reset() noexcept;

    /// Waits for the given seconds or until raise() is called, then takes the signal back. A signal
    /// that is already raised does not end the wait: it is seen when the time is over.
    /// @return -1 when the signal was raised, else 0
    int check(unsigned int seconds) noexcept;

private:
    bool waitOnce(std::chrono::steady_clock::time_point deadline) noexcept;

    // Not a condition variable of the standard library: after each wait that times out, the C library makes
    // another system call when it unlocks the mutex, and that in every cycle of an idle process.
    PlatformMutex m_mutex;
    platform::SharedCondition m_condition;
    bool m_requested = false;
};

} // namespace platwifi
