#pragma once

#include "platform/Export.h"

#include <chrono>
#include <pthread.h>

/// The mutex of the platform. It stays the plain POSIX type, so that one can also live in memory
/// that processes share, set up there with attributes of its own.
using PlatformMutex = pthread_mutex_t;

/// Mutexes, threads, time and processes as the platform offers them. Nothing throws.
///
/// The mutex operations return 0, or the error number of the POSIX call below them (EINVAL for a
/// null mutex).
class PLATFORM_API PlatformUtil {
public:
    /// Body of a thread; takes the argument given to createThread(), its result is dropped.
    using ThreadEntry = void* (*)(void*);

    /// Sets up `mutex` as a recursive mutex of this process.
    static int createMutex(PlatformMutex* mutex) noexcept;

    /// Sets up `mutex`, in memory that processes share, as a mutex between them. It is robust where the
    /// system has that: when a process dies holding it, the next one that locks it gets EOWNERDEAD
    /// and holds it.
    /// @param recursive  whether its holder may lock it again
    static int createSharedMutex(PlatformMutex* mutex, bool recursive) noexcept;

    /// Makes a mutex whose lock gave EOWNERDEAD usable again. The caller holds it, and has mended what
    /// it guards; without this, its release makes it unusable for ever.
    static int makeMutexConsistent(PlatformMutex* mutex) noexcept;

    /// Waits for the mutex. Takes any POSIX mutex, a robust or shared one too, and passes on what
    /// pthread_mutex_lock() says (EOWNERDEAD included).
    static int lockMutex(PlatformMutex* mutex) noexcept;

    /// Waits for the mutex like lockMutex(), at the longest until `deadline` on the monotonic clock.
    /// @return what lockMutex() returns, or ETIMEDOUT: the mutex is then not held
    static int lockMutexUntil(PlatformMutex* mutex,
                              std::chrono::steady_clock::time_point deadline) noexcept;

    /// Takes the mutex when that needs no waiting; EBUSY otherwise.
    static int tryLockMutex(PlatformMutex* mutex) noexcept;

    /// Releases one lock() of the calling thread.
    static int unlockMutex(PlatformMutex* mutex) noexcept;

    /// Releases every lock() of the calling thread, if there is one.
    static int releaseMutex(PlatformMutex* mutex) noexcept;

    /// Ends the mutex. The calling thread may still hold it, however deep: the mutex is then
    /// released first, because POSIX leaves destroying a locked one undefined. Nobody may wait for
    /// it any more.
    static int destroyMutex(PlatformMutex* mutex) noexcept;

    /// Starts `entry(argument)` on a new detached thread with the given name (cut to what the
    /// system holds: 15 bytes on Linux; null gives it none) and every signal blocked, so that the
    /// process's own signal handling never lands on it.
    /// @return the new thread's id as threadId() tells it there, or -1.
    static int createThread(ThreadEntry entry, void* argument, const char* name) noexcept;

    /// The system-wide id of the calling thread.
    static int threadId() noexcept;

    /// Blocks the calling thread for the given milliseconds at least, signals or not. Zero and
    /// negative values return at once.
    static void sleep(int milliseconds) noexcept;

    /// Ends the process with this id, without a chance for it to refuse. Ids of 0 and below, which
    /// name groups of processes, are refused.
    /// @return 0, or -1 with errno set.
    static int killProcess(int processId) noexcept;
};
