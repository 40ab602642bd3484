#pragma once

#include "platform/Export.h"

#include <chrono>
#include <pthread.h>

/// The mutex of the platform: the plain POSIX type, so that one can also be in memory that
/// processes share.
using PlatformMutex = pthread_mutex_t;

/// Mutexes, threads, time and processes. Nothing throws.
///
/// The mutex operations return 0, or the error number of the POSIX function that they call; EINVAL
/// for a null mutex.
class PLATFORM_API PlatformUtil {
public:
    /// The body of a thread. It gets the argument of createThread(); its result is ignored.
    using ThreadEntry = void* (*)(void*);

    /// Sets up `mutex` as a recursive mutex of this process.
    static int createMutex(PlatformMutex* mutex) noexcept;

    /// Sets up `mutex`, in memory that processes share, as a mutex between them. It is robust if
    /// the system has robust mutexes: after its holder died, the next lock returns EOWNERDEAD, and
    /// the caller holds it.
    /// @param recursive  whether its holder may lock it again
    static int createSharedMutex(PlatformMutex* mutex, bool recursive) noexcept;

    /// Makes a mutex usable again after EOWNERDEAD. The caller holds it and has repaired what it
    /// guards. A mutex that is unlocked without this can never be locked again.
    static int makeMutexConsistent(PlatformMutex* mutex) noexcept;

    /// Locks the mutex, of any POSIX kind, and waits for it without a limit.
    /// @return what pthread_mutex_lock() returns, EOWNERDEAD included
    static int lockMutex(PlatformMutex* mutex) noexcept;

    /// Like lockMutex(), but waits until `deadline` on the monotonic clock at most.
    /// @return what lockMutex() returns, or ETIMEDOUT: the mutex is not held then
    static int lockMutexUntil(PlatformMutex* mutex,
                              std::chrono::steady_clock::time_point deadline) noexcept;

    /// Locks the mutex if that needs no waiting.
    /// @return what lockMutex() returns, or EBUSY: the mutex is not held then
    static int tryLockMutex(PlatformMutex* mutex) noexcept;

    /// Releases one lock of the calling thread.
    static int unlockMutex(PlatformMutex* mutex) noexcept;

    /// Releases all locks of the calling thread; none is no error.
    static int releaseMutex(PlatformMutex* mutex) noexcept;

    /// Destroys the mutex. If the calling thread holds it, all its locks are released first: POSIX
    /// does not define what the destruction of a locked mutex does. No thread may wait for it.
    static int destroyMutex(PlatformMutex* mutex) noexcept;

    /// Starts `entry(argument)` on a new detached thread. Every signal is blocked on it, so that no
    /// signal handler of the program runs there.
    /// @param name  cut to what the system allows, 15 bytes on Linux; null for none
    /// @return what threadId() returns on the new thread, or -1 when it could not be started
    static int createThread(ThreadEntry entry, void* argument, const char* name) noexcept;

    /// The system-wide id of the calling thread.
    static int threadId() noexcept;

    /// Blocks the calling thread for at least the given milliseconds, also when signals arrive.
    /// Returns at once for 0 and less.
    static void sleep(int milliseconds) noexcept;

    /// Kills the process with this id, in a way that it cannot catch. Ids of 0 and less, which name
    /// groups of processes, fail.
    /// @return 0, or -1 with errno set
    static int killProcess(int processId) noexcept;
};
