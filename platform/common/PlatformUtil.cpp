#include "platform/PlatformUtil.h"

#include "common/MonotonicTime.h"
#include "common/ThreadName.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <semaphore.h>

namespace {

constexpr std::size_t NAME_BYTES = 16; // of a thread's name, with the NUL

/// What a new thread is to do. It is on the stack of the thread that starts it, which waits until the id is known.
class ThreadStart {
public:
    ThreadStart(PlatformUtil::ThreadEntry entry, void* argument, const char* name) noexcept
        : m_entry(entry), m_argument(argument) {
        std::strncpy(m_name, name ? name : "", NAME_BYTES - 1);
        sem_init(&m_isIdKnown, 0, 0);
    }
    ~ThreadStart() { sem_destroy(&m_isIdKnown); }
    ThreadStart(const ThreadStart&) = delete;
    ThreadStart& operator=(const ThreadStart&) = delete;

    /// On the new thread. The object may end as soon as the id is known.
    void* run() noexcept {
        if (m_name[0] != '\0')
            platform::nameThread(m_name);
        const auto entry = m_entry;
        void* const argument = m_argument;
        m_id = PlatformUtil::threadId();
        sem_post(&m_isIdKnown);
        return entry(argument);
    }

    int awaitId() noexcept {
        while (sem_wait(&m_isIdKnown) == -1 && errno == EINTR) {
        }
        return m_id;
    }

private:
    PlatformUtil::ThreadEntry m_entry;
    void* m_argument;
    char m_name[NAME_BYTES] = "";
    sem_t m_isIdKnown;
    int m_id = -1;
};

void* runThread(void* start) {
    return static_cast<ThreadStart*>(start)->run();
}

// The new thread inherits the signal mask of the calling thread: it never runs with signals
// unblocked.
bool startBlockingSignals(void* (*body)(void*), void* parameter) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    pthread_t thread;
    const bool started = pthread_create(&thread, nullptr, body, parameter) == 0;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (started)
        pthread_detach(thread);
    return started;
}

int initSharedMutex(PlatformMutex& mutex, int type, int robustness) noexcept {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, type);
    pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
    pthread_mutexattr_setrobust(&attributes, robustness);
    const int result = pthread_mutex_init(&mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    return result;
}

} // namespace

int PlatformUtil::createMutex(PlatformMutex* mutex) noexcept {
    if (!mutex)
        return EINVAL;
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    const int result = pthread_mutex_init(mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    return result;
}

int PlatformUtil::createSharedMutex(PlatformMutex* mutex, bool recursive) noexcept {
    if (!mutex)
        return EINVAL;
    int type = recursive ? PTHREAD_MUTEX_RECURSIVE : PTHREAD_MUTEX_NORMAL;
    const int result = initSharedMutex(*mutex, type, PTHREAD_MUTEX_ROBUST);
    if (result != ENOTSUP)
        return result;
    // Only a robust mutex of the normal type must refuse to be unlocked by a thread that does not hold it.
    type = recursive ? PTHREAD_MUTEX_RECURSIVE : PTHREAD_MUTEX_ERRORCHECK;
    return initSharedMutex(*mutex, type, PTHREAD_MUTEX_STALLED);
}

int PlatformUtil::makeMutexConsistent(PlatformMutex* mutex) noexcept {
    return mutex ? pthread_mutex_consistent(mutex) : EINVAL;
}

int PlatformUtil::lockMutex(PlatformMutex* mutex) noexcept {
    return mutex ? pthread_mutex_lock(mutex) : EINVAL;
}

int PlatformUtil::tryLockMutex(PlatformMutex* mutex) noexcept {
    return mutex ? pthread_mutex_trylock(mutex) : EINVAL;
}

int PlatformUtil::unlockMutex(PlatformMutex* mutex) noexcept {
    return mutex ? pthread_mutex_unlock(mutex) : EINVAL;
}

int PlatformUtil::destroyMutex(PlatformMutex* mutex) noexcept {
    if (!mutex)
        return EINVAL;
    releaseMutex(mutex);
    return pthread_mutex_destroy(mutex);
}

int PlatformUtil::createThread(ThreadEntry entry, void* argument, const char* name) noexcept {
    if (!entry)
        return -1;
    ThreadStart start(entry, argument, name);
    return startBlockingSignals(runThread, &start) ? start.awaitId() : -1;
}

void PlatformUtil::sleep(int milliseconds) noexcept {
    if (milliseconds <= 0)
        return;
    platform::sleepUntil(std::chrono::steady_clock::now() +
                         std::chrono::milliseconds(milliseconds));
}

int PlatformUtil::killProcess(int processId) noexcept {
    if (processId <= 0) {
        errno = EINVAL;
        return -1;
    }
    return kill(processId, SIGKILL);
}
