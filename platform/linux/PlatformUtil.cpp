#include "platform/PlatformUtil.h"

#include "common/MonotonicTime.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <future>
#include <memory>
#include <new>
#include <sys/types.h>
#include <unistd.h>

namespace {

constexpr std::size_t NAME_BYTES = 16; // the kernel's limit for a thread's name, with the NUL

struct ThreadStart {
    PlatformUtil::ThreadEntry entry;
    void* argument;
    char name[NAME_BYTES];
    std::promise<int> id;
};

void* runThread(void* parameter) {
    const std::unique_ptr<ThreadStart> start(static_cast<ThreadStart*>(parameter));
    if (start->name[0] != '\0')
        pthread_setname_np(pthread_self(), start->name);
    const auto entry = start->entry;
    void* const argument = start->argument;
    start->id.set_value(PlatformUtil::threadId());
    return entry(argument);
}

std::unique_ptr<ThreadStart> makeStart(PlatformUtil::ThreadEntry entry, void* argument,
                                       const char* name) {
    auto start = std::make_unique<ThreadStart>();
    start->entry = entry;
    start->argument = argument;
    std::strncpy(start->name, name ? name : "", NAME_BYTES - 1);
    return start;
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

bool heldByCaller(const PlatformMutex& mutex) noexcept {
    return mutex.__data.__owner == PlatformUtil::threadId();
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
    const int type = recursive ? PTHREAD_MUTEX_RECURSIVE : PTHREAD_MUTEX_NORMAL;
    const int result = initSharedMutex(*mutex, type, PTHREAD_MUTEX_ROBUST);
    return result == ENOTSUP ? initSharedMutex(*mutex, type, PTHREAD_MUTEX_STALLED) : result;
}

int PlatformUtil::makeMutexConsistent(PlatformMutex* mutex) noexcept {
    return mutex ? pthread_mutex_consistent(mutex) : EINVAL;
}

int PlatformUtil::lockMutex(PlatformMutex* mutex) noexcept {
    return mutex ? pthread_mutex_lock(mutex) : EINVAL;
}

int PlatformUtil::lockMutexUntil(PlatformMutex* mutex,
                                 std::chrono::steady_clock::time_point deadline) noexcept {
    if (!mutex)
        return EINVAL;
    const timespec time = platform::toTimespec(deadline);
    return pthread_mutex_clocklock(mutex, CLOCK_MONOTONIC, &time);
}

int PlatformUtil::tryLockMutex(PlatformMutex* mutex) noexcept {
    return mutex ? pthread_mutex_trylock(mutex) : EINVAL;
}

int PlatformUtil::unlockMutex(PlatformMutex* mutex) noexcept {
    return mutex ? pthread_mutex_unlock(mutex) : EINVAL;
}

int PlatformUtil::releaseMutex(PlatformMutex* mutex) noexcept {
    if (!mutex)
        return EINVAL;
    int result = 0;
    while (result == 0 && heldByCaller(*mutex))
        result = pthread_mutex_unlock(mutex);
    return result;
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
    try {
        auto start = makeStart(entry, argument, name);
        auto id = start->id.get_future();
        if (!startBlockingSignals(runThread, start.get()))
            return -1;
        static_cast<void>(start.release()); // runThread() deletes it
        return id.get();
    } catch (const std::exception&) {
        return -1;
    }
}

int PlatformUtil::threadId() noexcept {
    return gettid();
}

void PlatformUtil::sleep(int milliseconds) noexcept {
    if (milliseconds <= 0)
        return;
    const timespec deadline = platform::toTimespec(std::chrono::steady_clock::now() +
                                                   std::chrono::milliseconds(milliseconds));
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &deadline, nullptr) == EINTR) {
    }
}

int PlatformUtil::killProcess(int processId) noexcept {
    if (processId <= 0) {
        errno = EINVAL;
        return -1;
    }
    return kill(processId, SIGKILL);
}
