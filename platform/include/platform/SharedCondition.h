#pragma once

#include "platform/Export.h"
#include "platform/PlatformUtil.h"

#include <chrono>
#include <cstdint>

namespace platform {

/// A condition variable for processes that share memory. It is plain data: it may stand in a mapping,
/// at another address in each process, and there is nothing to construct or destroy.
///
/// It keeps no account of who waits. A process that is killed while it waits leaves no trace, whereas
/// a POSIX condition variable would wait for it in a later broadcast or destroy, for ever.
///
/// Nothing throws.
struct PLATFORM_API SharedCondition {
    /// How long wait() waits for the mutex: its holder may be a process that is stopped.
    static constexpr std::chrono::seconds RELOCK_LIMIT{1};

    std::uint32_t sequence; ///< changes with every broadcast
    std::uint32_t mark;     ///< tells what setUp() has made from any other memory

    /// Makes the memory a condition. For one thread, while nobody else can see the memory.
    void setUp() noexcept;

    /// Whether setUp() has been here and end() has not. May be asked of any memory, at any time.
    bool isSetUp() const noexcept;

    /// Takes the mark away. Nobody waits any more.
    void end() noexcept;

    /// Releases the mutex, waits for a broadcast that comes after that or for the deadline, and locks
    /// the mutex again. May end early without either.
    /// @param mutex     held by the calling thread, once
    /// @param deadline  on the monotonic clock
    /// @return 0; ETIMEDOUT; or, where the mutex could not simply be locked again, EBUSY after
    ///         RELOCK_LIMIT or what lockMutex() says of it: the caller holds the mutex after
    ///         EOWNERDEAD, and does not after any other
    int wait(PlatformMutex& mutex, std::chrono::steady_clock::time_point deadline) noexcept;

    /// Wakes everyone who waits, in every process. Whoever is to see a change of the data behind it
    /// makes that change under the mutex.
    void broadcast() noexcept;
};

} // namespace platform
