#pragma once

#include "platform/PlatformUtil.h"

/// Holds a mutex for the duration of a scope.
class MutexGuard {
public:
    explicit MutexGuard(PlatformMutex& mutex) noexcept : m_mutex(mutex) {
        PlatformUtil::lockMutex(&m_mutex);
    }
    ~MutexGuard() { PlatformUtil::unlockMutex(&m_mutex); }

    MutexGuard(const MutexGuard&) = delete;
    MutexGuard& operator=(const MutexGuard&) = delete;

private:
    PlatformMutex& m_mutex;
};
