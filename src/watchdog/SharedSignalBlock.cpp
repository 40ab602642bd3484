#include "watchdog/SharedSignalBlock.h"

#include "Paths.h"
#include "platform/OnceWarning.h"

#include <cerrno>
#include <cstddef>
#include <string>
#include <type_traits>

static_assert(std::is_standard_layout_v<SharedSignalBlock>);
static_assert(sizeof(platform::SharedCondition) <= sizeof(pthread_cond_t));

using Joining = platform::SharedMemory::Joining;

namespace {

constexpr std::chrono::seconds LOCK_LIMIT(1);

// A shared lock is held for microseconds, unless the holder's process is stopped or the memory is
// damaged. The limit keeps this process from waiting for as long.
int lockWithLimit(PlatformMutex& mutex) noexcept {
    static platform::OnceWarning warning;
    const int error =
        PlatformUtil::lockMutexUntil(&mutex, std::chrono::steady_clock::now() + LOCK_LIMIT);
    if (error == ETIMEDOUT) {
        warning.print(
            std::string("a lock in the shared memory object ") + platwifi::paths::BLOCK_NAME +
            " has been held for more than a second; until it is free, this process and others do "
            "not notice each other's saves; continue or end the process that is stopped");
    }
    return error;
}

// Releases a mutex that cannot be made consistent.
int makeConsistent(PlatformMutex& mutex) noexcept {
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

// Releases every lock of the calling thread: the C library keeps a list of the robust mutexes that
// a thread holds, and would use this one after its memory is unmapped.
void SharedSignalBlock::leave() noexcept {
    if (lock() != 0)
        return;
    if (attachCount == 1)
        end();
    else
        --attachCount;
    PlatformUtil::releaseMutex(&blockMutex);
}

// The block mutex is not destroyed: a process that opened the object before it lost its name may be
// waiting for it. A mutex owns nothing beyond its memory.
void SharedSignalBlock::end() noexcept {
    attachCount = 0;
    refreshPending = 0;
    refreshSender = NO_SENDER;
    refreshCondition.end();
    PlatformUtil::destroyMutex(&signalMutex);
}

int SharedSignalBlock::lock() noexcept {
    return recovered(lockWithLimit(blockMutex));
}

int SharedSignalBlock::unlock() noexcept {
    return PlatformUtil::unlockMutex(&blockMutex);
}

int SharedSignalBlock::lockSignal() noexcept {
    return signalRecovered(lockWithLimit(signalMutex));
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

// The thread's id is a system call: it is asked for when a signal is raised, not in every cycle.
bool SharedSignalBlock::take() noexcept {
    if (lock() != 0)
        return false;
    const bool foreign = refreshPending == 1 &&
                         refreshSender != static_cast<std::uint32_t>(PlatformUtil::threadId());
    if (foreign)
        refreshPending = 0;
    unlock();
    return foreign;
}

bool SharedSignalBlock::see(std::uint32_t& seen) noexcept {
    const bool isNew = lastSignal() != seen;
    seen = lastSignal();
    if (lock() != 0)
        return isNew;
    const bool ownerDied = refreshPending == 1 && refreshSender == NO_SENDER;
    if (ownerDied)
        refreshPending = 0;
    unlock();
    return isNew || ownerDied;
}

// `attachCount` needs no repair: it is changed by a single store.
void SharedSignalBlock::raiseAfterOwnerDied() noexcept {
    refreshPending = 1;
    refreshSender = NO_SENDER;
}

int SharedSignalBlock::recovered(int error) noexcept {
    if (error != EOWNERDEAD)
        return error;
    raiseAfterOwnerDied();
    return makeConsistent(blockMutex);
}

int SharedSignalBlock::signalRecovered(int error) noexcept {
    if (error != EOWNERDEAD)
        return error;
    const bool isLocked = lock() == 0;
    raiseAfterOwnerDied(); // even without the lock: this signal must not be lost
    if (isLocked)
        unlock();
    return makeConsistent(signalMutex);
}
