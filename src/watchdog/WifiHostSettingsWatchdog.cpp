#include "watchdog/WifiHostSettingsWatchdog.h"

#include "Paths.h"
#include "Profile.h"
#include "platform/Deadline.h"
#include "watchdog/SharedSignalBlock.h"

#include <cerrno>

using namespace platwifi;

namespace {

constexpr const char* THREAD_NAME = "tWifiRefreshWatchdog";

std::atomic<ReloadHook> reloadHook{nullptr};

bool reload() noexcept {
    const ReloadHook hook = reloadHook;
    return !hook || hook();
}

std::uint32_t ownId() noexcept {
    return static_cast<std::uint32_t>(PlatformUtil::threadId());
}

} // namespace

void platwifi::setReloadHook(ReloadHook hook) noexcept {
    reloadHook = hook;
}

WifiHostSettingsWatchdog::WifiHostSettingsWatchdog() noexcept
    : block(nullptr), shmCreator(false), threadId(NO_THREAD), hasBegun(false), runner(NO_THREAD),
      destroyed(nullptr) {}

// Waits for the end of the run again: stop() on the refresh thread itself did not wait.
WifiHostSettingsWatchdog::~WifiHostSettingsWatchdog() {
    stop();
    awaitEndOfRun();
    wifiShmemDestroy();
    if (destroyed)
        *destroyed = true;
}

bool WifiHostSettingsWatchdog::initialize() noexcept {
    if (threadId != NO_THREAD)
        return false;
    wifiShmemCreate();
    return true;
}

// Waits until the run has begun. Otherwise stop() could return before the thread enters run().
void WifiHostSettingsWatchdog::start() noexcept {
    if (threadId != NO_THREAD)
        return;
    stopSignal.reset();
    saveSignal.reset();
    std::unique_lock<std::mutex> guard(runMutex);
    hasBegun = false;
    threadId = PlatformUtil::createThread(refreshWatchdogEntry, this, THREAD_NAME);
    if (threadId != NO_THREAD)
        runChanged.wait(guard, [this] { return hasBegun; });
}

void WifiHostSettingsWatchdog::stop() noexcept {
    if (threadId == NO_THREAD)
        return;
    sendStopRefreshThreadSignal();
    awaitEndOfRun();
    threadId = NO_THREAD;
}

void WifiHostSettingsWatchdog::sendSaveSettingsSignal() noexcept {
    saveSignal.raise();
}

void WifiHostSettingsWatchdog::sendStopRefreshThreadSignal() noexcept {
    stopSignal.raise();
}

void WifiHostSettingsWatchdog::sendRefreshSettingsSignal() noexcept {
    notifyPeers();
}

bool WifiHostSettingsWatchdog::notifyPeers() noexcept {
    if (!block)
        return true;
    if (block->lockSignal() != 0)
        return false;
    const bool knowsAll = seenSignal == block->lastSignal();
    const bool raised = block->raise(ownId()) == 0;
    if (raised && knowsAll)
        seenSignal = block->lastSignal(); // its own
    block->unlockSignal();
    return raised;
}

int WifiHostSettingsWatchdog::checkForStopSignal(unsigned int seconds) noexcept {
    return stopSignal.check(seconds);
}

int WifiHostSettingsWatchdog::checkForSaveSignal(unsigned int seconds) noexcept {
    return saveSignal.check(seconds);
}

int WifiHostSettingsWatchdog::checkForRefreshSignal(unsigned int seconds) noexcept {
    const auto deadline = platform::deadlineAfter(seconds);
    if (!block || block->lockSignal() != 0 || block->wait(deadline) != 0)
        return 0;
    const bool seen = rule::EVERY_PROCESS_RELOADS() ? block->see(seenSignal) : block->take();
    block->unlockSignal();
    return seen ? -1 : 0;
}

// A reload or a notification that fails is tried again in the next cycle.
void WifiHostSettingsWatchdog::run() noexcept {
    bool isDestroyed = false;
    bool notifyAgain = false;
    bool reloadAgain = false;
    beginRun(&isDestroyed);
    while (checkForStopSignal(1) == 0) {
        const bool hasSaved = checkForSaveSignal(1) != 0;
        if (hasSaved || notifyAgain)
            notifyAgain = !notifyPeers();
        if (!hasSaved && (checkForRefreshSignal(1) != 0 || reloadAgain))
            reloadAgain = !reload();
        if (isDestroyed)
            return;
    }
    endRun();
}

void WifiHostSettingsWatchdog::beginRun(bool* destroyedFlag) noexcept {
    std::unique_lock<std::mutex> guard(runMutex);
    runChanged.wait(guard, [this] { return runner == NO_THREAD; });
    destroyed = destroyedFlag;
    runner = PlatformUtil::threadId();
    hasBegun = true;
    runChanged.notify_all();
}

// Notifies while the mutex is held: a thread that waits for this may destroy the object as soon as
// it gets the mutex.
void WifiHostSettingsWatchdog::endRun() noexcept {
    const std::lock_guard<std::mutex> guard(runMutex);
    destroyed = nullptr;
    runner = NO_THREAD;
    runChanged.notify_all();
}

// Does not wait on the refresh thread itself, which stops its own watchdog when a reload fails.
void WifiHostSettingsWatchdog::awaitEndOfRun() noexcept {
    std::unique_lock<std::mutex> guard(runMutex);
    if (runner != PlatformUtil::threadId())
        runChanged.wait(guard, [this] { return runner == NO_THREAD; });
}

void* WifiHostSettingsWatchdog::refreshWatchdogEntry(void* watchdog) noexcept {
    static_cast<WifiHostSettingsWatchdog*>(watchdog)->run();
    return nullptr;
}

int WifiHostSettingsWatchdog::wifiShmemCreate() noexcept {
    using platform::SharedMemory;
    if (block) {
        block->addUser();
        return 0;
    }
    const auto result = memory.attach(paths::BLOCK_NAME, sizeof(SharedSignalBlock),
                                      SharedSignalBlock::setUp, SharedSignalBlock::join);
    shmCreator = result == SharedMemory::Result::CREATED;
    block = static_cast<SharedSignalBlock*>(memory.data());
    seenSignal = block ? block->lastSignal() : 0; // what was loaded is as new as this signal
    return 0;
}

// Removes the name first: after leave() it may already belong to a new block.
void WifiHostSettingsWatchdog::wifiShmemDestroy() noexcept {
    if (!block)
        return;
    platform::SharedMemory::unlink(paths::BLOCK_NAME);
    block->leave();
    block = nullptr;
    memory.detach();
}

int WifiHostSettingsWatchdog::wifiShmemLock() noexcept {
    return block ? block->lock() : EINVAL;
}

int WifiHostSettingsWatchdog::wifiShmemUnlock() noexcept {
    return block ? block->unlock() : EINVAL;
}
