#pragma once

#include "Export.h"
#include "platform/PlatformUtil.h"
#include "platform/SharedMemory.h"
#include "watchdog/LocalSignal.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>

struct SharedSignalBlock;

namespace platwifi {

/// Loads the settings again, or for the first time. It runs on the refresh thread and may destroy the
/// watchdog. It must not wait without limit: a thread that holds a lock which it needs may itself wait for the
/// end of the refresh thread.
/// @return false when it could not get such a lock; the refresh thread calls it again in its next cycle
using ReloadHook = bool (*)() noexcept;

/// Makes all watchdogs of the process call this after another process has saved. Until then they reload nothing.
/// Any thread may call it.
void setReloadHook(ReloadHook hook) noexcept;

} // namespace platwifi

/// Keeps the settings of the processes of a host up to date. Its thread reloads the settings after
/// another process has saved, and notifies the other processes after this one has. Processes notify
/// each other through a block of shared memory, "/wifi_shmem".
///
/// Order of use: construct, initialize(), start(), any signals, stop(), destroy. Construction,
/// initialize(), start() and destruction belong to one thread at a time; any thread may send
/// signals in between. Nothing is thrown. When there is no block for this process, the thread runs
/// without one: this process and others do not notice each other's saves, and one line on standard
/// error says so.
///
/// A wait for a lock of the block ends after a second at most. The thread tries again in its next
/// cycle what it could not do without the lock.
///
/// After start() has returned, the thread may destroy its own watchdog from within
/// the reload hook.
class PLATWIFI_API WifiHostSettingsWatchdog {
public:
    /// Touches nothing outside of the object.
    WifiHostSettingsWatchdog() noexcept;

    /// Stops the thread and leaves the block, as stop() and wifiShmemDestroy() do.
    ~WifiHostSettingsWatchdog();

    WifiHostSettingsWatchdog(const WifiHostSettingsWatchdog&) = delete;
    WifiHostSettingsWatchdog& operator=(const WifiHostSettingsWatchdog&) = delete;

    /// Becomes a user of the block, and makes one when there is none. Each further call counts one
    /// more user.
    /// @return true, also without a block; false, without an effect, while the thread runs
    bool initialize() noexcept;

    /// Starts the thread, unless it runs, and takes back earlier signals to stop and to save.
    /// Returns when the thread is in run().
    void start() noexcept;

    /// Makes the thread leave run() and waits until it has: about three seconds at most, longer
    /// during a reload. Does not wait when called on the thread itself. Does nothing when no thread
    /// runs.
    void stop() noexcept;

    /// Signals the thread that this process has saved; the thread notifies the other processes.
    /// Does not wait.
    void sendSaveSettingsSignal() noexcept;

    /// Signals the thread to leave run(). Does not wait.
    void sendStopRefreshThreadSignal() noexcept;

    /// Raises the signal to reload in the block, with the calling thread as its sender, and wakes
    /// the threads of all processes. Does nothing without a block. Takes the block's locks.
    void sendRefreshSettingsSignal() noexcept;

    /// Waits for the given seconds or until the signal to stop is raised, then takes it back. A
    /// signal that is already raised does not end the wait: it is seen when the time is over.
    /// @return -1 when it was raised, else 0
    int checkForStopSignal(unsigned int seconds) noexcept;

    /// The same for the signal that this process has saved.
    int checkForSaveSignal(unsigned int seconds) noexcept;

    /// The same for the signal to reload. Under the profile `device`, of all threads that wait for it only
    /// one takes it, and never its sender. Under `modern` every process but the sender's sees it. Takes the block's locks, and releases them while it waits.
    /// @return -1 when it was raised, else 0; without a block 0 at once
    int checkForRefreshSignal(unsigned int seconds) noexcept;

    /// The body of the thread: notifies and reloads until the signal to stop. One thread at a time:
    /// another one waits.
    void run() noexcept;

    /// run() for PlatformUtil::createThread().
    /// @param watchdog  a WifiHostSettingsWatchdog
    /// @return null
    static void* refreshWatchdogEntry(void* watchdog) noexcept;

    /// Becomes a user of the block; part of initialize().
    /// @return 0
    int wifiShmemCreate() noexcept;

    /// Removes the block's name, so that the next process makes a new block, and leaves the block.
    /// Its other users continue to share it. Does nothing without a block.
    void wifiShmemDestroy() noexcept;

    /// Locks the block mutex, which is recursive. When its holder has died, a signal to reload is
    /// raised first.
    /// @return 0, or an error number when the mutex is not held: EINVAL without a block
    int wifiShmemLock() noexcept;

    /// Releases one wifiShmemLock() of the calling thread.
    /// @return 0, or an error number: EINVAL without a block
    int wifiShmemUnlock() noexcept;

    /// Whether this watchdog made the block that it uses.
    bool isCreator() const noexcept { return shmCreator; }

private:
    static constexpr int NO_THREAD = -1;

    /// sendRefreshSettingsSignal(). False when another process held a lock of the block for too
    /// long.
    bool notifyPeers() noexcept;

    void beginRun(bool* destroyedFlag) noexcept;
    void endRun() noexcept;
    void awaitEndOfRun() noexcept;

    platform::SharedMemory memory;
    SharedSignalBlock* block; ///< in the memory, or null
    std::uint32_t seenSignal =
        0; ///< number of the last signal of the block that this process knows
    platwifi::LocalSignal stopSignal;
    platwifi::LocalSignal saveSignal;
    bool shmCreator;
    std::atomic<int> threadId; ///< of the running thread, or NO_THREAD

    // The thread cannot hold a mutex for its whole run: a thread that unloads the settings waits
    // for the end of the run while it holds the settings' locks, and the run takes those as well.
    std::mutex runMutex; ///< guards the rest
    std::condition_variable runChanged;
    bool hasBegun;   ///< whether the thread that was started last has entered run()
    int runner;      ///< id of the thread that is in run(), or NO_THREAD
    bool* destroyed; ///< a variable of run(), null outside of it; the destructor sets it to true
};
