#pragma once

#include "platform/Export.h"
#include "platform/PlatformUtil.h"

#include <chrono>
#include <cstdint>

namespace platform {

/// A condition variable in memory that processes share, or that threads of one process use. It is plain data without a constructor or
/// destructor, and may be mapped at another address in each process.
///
/// It has no list of the threads that wait. So a process that is killed while it waits leaves
/// nothing behind; a POSIX condition variable would wait for it for ever in a later broadcast or
/// destruction.
///
/// Nothing throws.
struct PLATFORM_API SharedCondition {
    /// The time limit for locking the mutex again in wait(): the process that holds it may be
    /// stopped.
    static constexpr std::chrono::seconds RELOCK_LIMIT{1};

    std::uint32_t sequence; ///< changes with every broadcast
    std::uint32_t mark;     ///< a fixed value between setUp() and end()

    enum class Reach {
        ALL_PROCESSES,
        THIS_PROCESS ///< the kernel finds its threads in half the time
    };

    /// Sets up the memory as a condition. No other thread or process may see the memory yet.
    void setUp(Reach reach = Reach::ALL_PROCESSES) noexcept;

    /// Whether setUp() was called on this memory and end() was not. Works on any memory, at any
    /// time.
    bool isSetUp() const noexcept;

    /// Removes the mark. No thread may wait.
    void end() noexcept;

    /// Unlocks the mutex, waits for a later broadcast or for the deadline, and locks the mutex
    /// again. May return early without either.
    /// @param mutex     held by the calling thread, once
    /// @param deadline  on the monotonic clock
    /// @return 0, ETIMEDOUT after the deadline, EBUSY when the mutex could not be locked again
    ///         within RELOCK_LIMIT, or an error of lockMutex(). The caller holds the mutex after 0,
    ///         ETIMEDOUT and EOWNERDEAD, and after no other error.
    int wait(PlatformMutex& mutex, std::chrono::steady_clock::time_point deadline) noexcept;

    /// Wakes all threads that wait, in all processes that it reaches. Change the data that the condition is about
    /// while you hold the mutex; otherwise a thread that is about to wait misses the change.
    void broadcast() noexcept;
};

} // namespace platform
