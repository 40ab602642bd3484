#include "watchdog/SharedSignalBlock.h"

#include "platform/OnceWarning.h"

#include <cerrno>
#include <cstddef>
#include <type_traits>

static_assert(std::is_standard_layout_v<SharedSignalBlock>);
static_assert(sizeof(platform::SharedCondition) <= sizeof(pthread_cond_t));

using Joining = platform::SharedMemory::Joining;

namespace {

constexpr std::chrono::seconds LOCK_LIMIT(1);

// The holder of a shared lock needs it for microseconds, but its process may be stopped meanwhile, or its
// memory damaged. A caller must not wait with it.
int lockInTime(PlatformMutex& mutex) noexcept {
    static platform::OnceWarning warning;
    const int error =
        PlatformUtil::lockMutexUntil(&mutex, std::chrono::steady_clock::now() + LOCK_LIMIT);
    if (error == ETIMEDOUT) {
        warning.print(
            "a lock in the shared memory object /wifi_shmem has been held for more than a "
            "second; until it is free, this process and others do not notice each other's "
            "saves; continue or end the process that is stopped");
    }
    return error;
}

// One that cannot be recovered is not held any more.
int usable(PlatformMutex& mutex) noexcept {
    const int error = PlatformUtil::makeMutexConsistent(&mutex);
    if (error != 0)
        PlatformUtil::unlockMutex(&mutex);
    return error;
}

} // namespace

bool SharedSignalBlock::setUp(void* memory) noexcept {
    auto* const block = static_cast<SharedSignalBlock*>(memory);
    if (PlatformUtil::createSharedMutex(&block->blockMutex, true) != 0 ||
        PlatformUtil::createSharedMutex(&block->signalMutex, false) != 0)
        return false;
    block->refreshPending = 0;
    block->refreshSender = NO_SENDER;
    block->attachCount = 1;
    block->refreshCondition.setUp();
    return true;
}

Joining SharedSignalBlock::join(void* memory) noexcept {
    auto* const block = static_cast<SharedSignalBlock*>(memory);
    if (!block->refreshCondition.isSetUp())
        return Joining::REFUSED;
    if (const int error = block->lock())
        return error == ETIMEDOUT ? Joining::BUSY : Joining::REFUSED;
    const bool inUse = block->attachCount != 0;
    if (inUse)
        ++block->attachCount;
    block->unlock();
    return inUse ? Joining::JOINED : Joining::REFUSED;
}

void SharedSignalBlock::addUser() noexcept {
    if (lock() != 0)
        return;
    ++attachCount;
    unlock();
}

// A mutex that a thread still holds when its memory goes would be found by the thread's later locks.
void SharedSignalBlock::leave() noexcept {
    if (lock() != 0)
        return;
    if (attachCount == 1)
        end();
    else
        --attachCount;
    PlatformUtil::releaseMutex(&blockMutex);
}

// The block mutex is released as any other time, not destroyed: a process that opened the object
// before it lost its name may be waiting for it. It owns nothing beyond its memory.
void SharedSignalBlock::end() noexcept {
    attachCount = 0;
    refreshPending = 0;
    refreshSender = NO_SENDER;
    refreshCondition.end();
    PlatformUtil::destroyMutex(&signalMutex);
}

int SharedSignalBlock::lock() noexcept {
    return recovered(lockInTime(blockMutex));
}

int SharedSignalBlock::unlock() noexcept {
    return PlatformUtil::unlockMutex(&blockMutex);
}

int SharedSignalBlock::lockSignal() noexcept {
    return signalRecovered(lockInTime(signalMutex));
}

int SharedSignalBlock::unlockSignal() noexcept {
    return PlatformUtil::unlockMutex(&signalMutex);
}

int SharedSignalBlock::raise(std::uint32_t sender) noexcept {
    if (const int error = lock())
        return error;
    refreshPending = 1;
    refreshSender = sender;
    unlock();
    refreshCondition.broadcast();
    return 0;
}

int SharedSignalBlock::wait(std::chrono::steady_clock::time_point deadline) noexcept {
    const int error = refreshCondition.wait(signalMutex, deadline);
    return error == ETIMEDOUT ? 0 : signalRecovered(error);
}

bool SharedSignalBlock::take(std::uint32_t ownId) noexcept {
    if (lock() != 0)
        return false;
    const bool foreign = refreshPending == 1 && refreshSender != ownId;
    if (foreign)
        refreshPending = 0;
    unlock();
    return foreign;
}

// A count is changed by a single store: it is right, whenever the process died.
void SharedSignalBlock::raiseForTheDead() noexcept {
    refreshPending = 1;
    refreshSender = NO_SENDER;
}

int SharedSignalBlock::recovered(int error) noexcept {
    if (error != EOWNERDEAD)
        return error;
    raiseForTheDead();
    return usable(blockMutex);
}

int SharedSignalBlock::signalRecovered(int error) noexcept {
    if (error != EOWNERDEAD)
        return error;
    const bool isLocked = lock() == 0;
    raiseForTheDead(); // without the lock, too: what its holder changes meanwhile is lost, not this
    if (isLocked)
        unlock();
    return usable(signalMutex);
}
