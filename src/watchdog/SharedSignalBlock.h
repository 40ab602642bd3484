#pragma once

#include "platform/PlatformUtil.h"
#include "platform/SharedCondition.h"
#include "platform/SharedMemory.h"

#include <chrono>
#include <cstdint>
#include <pthread.h>

/// The contents of the shared memory object, through which the processes of a host notify each
/// other that the supplicant's configuration was saved.
///
/// It has two locks. The signal mutex is held around raising and taking the signal. The block mutex
/// guards the three numbers. A thread that needs both takes the signal mutex first.
///
/// Both locks are robust. When a process dies while it holds one, the next process that locks it
/// first raises a signal without a sender: the dead process may have been raising or taking one,
/// and one reload too many does no harm. When the holder's process is stopped, a lock fails after a
/// second with ETIMEDOUT, and the first time in a process with a line on standard error.
///
/// An operation that locks returns 0, or an error number when the lock is not held.
struct SharedSignalBlock {
    static constexpr std::uint32_t NO_SENDER = UINT32_MAX;

    PlatformMutex blockMutex;  ///< recursive
    PlatformMutex signalMutex; ///< the mutex of the condition
    union {
        platform::SharedCondition refreshCondition;
        pthread_cond_t conditionSlot; ///< gives the union the size of a POSIX condition
    };
    std::uint32_t refreshPending; ///< 1 while a signal is raised
    std::uint32_t refreshSender;  ///< id of the thread that raised it, or NO_SENDER
    std::uint32_t attachCount;    ///< watchdogs that use the block; 0 after the last one has left

    /// Sets up a block with one user in zeroed memory that no other process sees. For SharedMemory.
    static bool setUp(void* memory) noexcept;

    /// Becomes a user of memory that may be a block. REFUSED when it is none, or its last user has
    /// left; BUSY when its lock stays held. For SharedMemory.
    static platform::SharedMemory::Joining join(void* memory) noexcept;

    /// Counts one more user of a block that is in use.
    void addUser() noexcept;

    /// Leaves the block; the last user ends it, and join() refuses it from then on. The calling
    /// thread must not hold the signal mutex. Every lock of the block mutex that it holds is
    /// released.
    void leave() noexcept;

    /// Lock and unlock the block mutex.
    int lock() noexcept;
    int unlock() noexcept;

    /// Lock and unlock the signal mutex.
    int lockSignal() noexcept;
    int unlockSignal() noexcept;

    /// Raises the signal and wakes every waiting thread. The caller holds the signal mutex.
    /// @return 0, or the error number of lock(): nothing was raised
    int raise(std::uint32_t sender) noexcept;

    /// Waits for raise() or the deadline. The caller holds the signal mutex, and still does when 0
    /// is returned. A deadline that passes is no error.
    /// @return 0, or an error number: the signal mutex is not held then
    int wait(std::chrono::steady_clock::time_point deadline) noexcept;

    /// Takes the signal back if it is raised and the calling thread is not its sender. The caller holds
    /// the signal mutex.
    /// @return whether it took one
    bool take() noexcept;

    /// The number of the signal that was raised last. The caller holds the signal mutex.
    std::uint32_t lastSignal() const noexcept { return refreshCondition.sequence; }

    /// Sees every signal that was raised since `seen`, and one without a sender, which it takes back. The
    /// others stay for processes that take them. The caller holds the signal mutex.
    /// @param seen  the number of the last signal that this process has seen or raised; updated
    /// @return whether there was one
    bool see(std::uint32_t& seen) noexcept;

private:
    int recovered(int error) noexcept;
    int signalRecovered(int error) noexcept;
    void raiseAfterOwnerDied() noexcept;
    void end() noexcept;
};
