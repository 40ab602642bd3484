#pragma once

#include "platform/PlatformUtil.h"
#include "platform/SharedCondition.h"
#include "platform/SharedMemory.h"

#include <chrono>
#include <cstdint>
#include <pthread.h>

/// What the processes of a host share, to tell each other that the supplicant's configuration has been
/// saved: the contents of the shared memory object.
///
/// Two locks, always in this order: the signal mutex, held around raising and taking the signal, then
/// the block mutex, which guards the three numbers. Both outlive a process that dies holding them: the
/// next one to lock them raises a signal without a sender first, because the dead one may have been
/// raising or taking one, and a reload too many does no harm. A holder that does not release them,
/// because its process is stopped, is waited for for a second: then ETIMEDOUT, and the first time in a
/// process a line on standard error.
///
/// An operation that locks gives 0, or an error number when the lock is not held.
struct SharedSignalBlock {
    static constexpr std::uint32_t NO_SENDER = UINT32_MAX;

    PlatformMutex blockMutex;  ///< recursive
    PlatformMutex signalMutex; ///< the one that goes with the condition
    union {
        platform::SharedCondition refreshCondition;
        pthread_cond_t conditionSlot; ///< the room that the platform's own would take
    };
    std::uint32_t refreshPending; ///< 1 while a signal is raised
    std::uint32_t refreshSender;  ///< id of the thread that raised it, or NO_SENDER
    std::uint32_t attachCount;    ///< watchdogs that use the block, 0 when its last user has left

    /// Makes zeroed memory, which nobody else sees, a block with one user. For SharedMemory.
    static bool setUp(void* memory) noexcept;

    /// Becomes one more user of what may be a block. REFUSED when it is none, or has been left by its
    /// last user; BUSY when its lock cannot be had. For SharedMemory.
    static platform::SharedMemory::Joining join(void* memory) noexcept;

    /// Becomes one more user of a block that is in use.
    void addUser() noexcept;

    /// Leaves the block; the last user ends it. Whoever comes to it by then finds it without users.
    /// The calling thread must not hold the signal mutex; it gives the block mutex back however often
    /// it holds it.
    void leave() noexcept;

    /// The block mutex.
    int lock() noexcept;
    int unlock() noexcept;

    /// The signal mutex.
    int lockSignal() noexcept;
    int unlockSignal() noexcept;

    /// Raises the signal and wakes every waiting thread. The caller holds the signal mutex.
    /// @return 0, or the error number of lock(): nothing was raised
    int raise(std::uint32_t sender) noexcept;

    /// Waits for raise(). The caller holds the signal mutex, and holds it again afterwards, unless an
    /// error number is returned. A deadline that passes is no error.
    int wait(std::chrono::steady_clock::time_point deadline) noexcept;

    /// Takes the signal, when there is one that somebody else has raised. The caller holds the signal
    /// mutex.
    /// @return whether there was one
    bool take(std::uint32_t ownId) noexcept;

private:
    int recovered(int error) noexcept;
    int signalRecovered(int error) noexcept;
    void raiseForTheDead() noexcept;
    void end() noexcept;
};
