#pragma once

#include "Export.h"
#include "platform/PlatformUtil.h"
#include "platform/SharedMemory.h"
#include "watchdog/LocalSignal.h"

#include <atomic>
#include <condition_variable>
#include <mutex>

struct SharedSignalBlock;

/// Keeps the settings fresh. Its thread reloads them when another process of this host has saved, and
/// tells the other processes when this one has. They tell each other through a block of shared memory,
/// "/wifi_shmem".
///
/// Order of use: construct, initialize(), start(), any signals, stop(), destroy. Construction,
/// initialize(), start() and destruction belong to one thread at a time; signals may be sent by any
/// thread in between. Nothing is thrown: where the block cannot be had, the thread runs without it, and
/// this process and others do not notice each other's saves; one line on standard error says so.
///
/// The locks of the block are waited for for a second at most. What could not be done without them is
/// tried again in the thread's next round.
///
/// The thread may destroy its own watchdog from within platwifi::refreshSettings(), when start() has
/// returned.
class PLATWIFI_API WifiHostSettingsWatchdog {
public:
    /// Makes nothing outside of the object.
    WifiHostSettingsWatchdog() noexcept;

    /// Stops the thread and leaves the block, as stop() and wifiShmemDestroy() do.
    ~WifiHostSettingsWatchdog();

    WifiHostSettingsWatchdog(const WifiHostSettingsWatchdog&) = delete;
    WifiHostSettingsWatchdog& operator=(const WifiHostSettingsWatchdog&) = delete;

    /// Becomes a user of the block, making one where there is none. Done again, it counts once more.
    /// @return true, without a block too; false, having done nothing, while the thread runs
    bool initialize() noexcept;

    /// Starts the thread, unless it runs, and forgets signals to stop and to save from before. Returns
    /// when the thread is in run().
    void start() noexcept;

    /// Makes the thread leave run() and returns when it has, within about three seconds, or later when
    /// it reloads the settings. Called by the thread itself, it does not wait. Nothing when no thread
    /// runs.
    void stop() noexcept;

    /// Tells the thread that this process has saved; it tells the other processes. Does not wait.
    void sendSaveSettingsSignal() noexcept;

    /// Tells the thread to leave run(). Does not wait.
    void sendStopRefreshThreadSignal() noexcept;

    /// Raises the signal to reload in the block, in the name of the calling thread, and wakes the
    /// threads of all processes. Nothing without a block. Takes the block's locks.
    void sendRefreshSettingsSignal() noexcept;

    /// Waits for the signal to stop, for the given seconds or until it is raised. One raised earlier
    /// is seen when this wait ends.
    /// @return -1 when it was raised, and takes it back; else 0
    int checkForStopSignal(unsigned int seconds) noexcept;

    /// The same for the signal that this process has saved.
    int checkForSaveSignal(unsigned int seconds) noexcept;

    /// The same for the signal to reload, which only one of all threads that look for it takes, and
    /// never the one that raised it. Takes the block's locks, not while it waits.
    /// @return -1 when it was raised, and takes it back; else 0, without a block at once
    int checkForRefreshSignal(unsigned int seconds) noexcept;

    /// The thread: tells and reloads until it is told to stop. One thread at a time: another one waits.
    void run() noexcept;

    /// run() for PlatformUtil::createThread().
    /// @param watchdog  a WifiHostSettingsWatchdog
    /// @return null
    static void* refreshWatchdogEntry(void* watchdog) noexcept;

    /// Becomes a user of the block; part of initialize().
    /// @return 0
    int wifiShmemCreate() noexcept;

    /// Takes the name from the block, so that the next process makes one of its own, and leaves it to
    /// those who still share it. Nothing without a block.
    void wifiShmemDestroy() noexcept;

    /// Takes the block mutex, as often as the thread likes. After a process died with it, a signal to
    /// reload is raised first.
    /// @return 0, or an error number when the mutex is not held: EINVAL without a block
    int wifiShmemLock() noexcept;

    /// Gives back one wifiShmemLock() of the calling thread.
    /// @return 0, or an error number: EINVAL without a block
    int wifiShmemUnlock() noexcept;

    /// Whether this watchdog made the block that it uses.
    bool isCreator() const noexcept { return shmCreator; }

private:
    static constexpr int NO_THREAD = -1;

    /// sendRefreshSettingsSignal(). False when another process holds a lock of the block for too long.
    bool notifyPeers() noexcept;

    void beginRun(bool* destroyedFlag) noexcept;
    void endRun() noexcept;
    void awaitEndOfRun() noexcept;

    platform::SharedMemory memory;
    SharedSignalBlock* block; ///< in the memory, or null
    platwifi::LocalSignal stopSignal;
    platwifi::LocalSignal saveSignal;
    bool shmCreator;
    std::atomic<int> threadId; ///< of the running thread, or NO_THREAD

    // Not a mutex that the thread holds for its whole run: a thread that unloads the settings waits for
    // the end of the run with their locks, which the run takes, too.
    std::mutex runMutex; ///< guards the rest
    std::condition_variable runChanged;
    bool hasBegun;   ///< whether the thread that was started last has come to run()
    int runner;      ///< id of the thread that is in run(), or NO_THREAD
    bool* destroyed; ///< on the stack of run(), while that is on; set by the destructor
};
