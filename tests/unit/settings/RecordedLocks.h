#pragma once

#include "platform/PlatformUtil.h"
#include "settings/WifiHostSettings.h"

#include <array>
#include <functional>
#include <vector>

namespace test {

/// A mutex was taken or given back.
struct LockEvent {
    bool isLock;
    PlatformMutex* mutex;

    bool operator==(const LockEvent& other) const {
        return isLock == other.isLock && mutex == other.mutex;
    }
};

using LockEvents = std::vector<LockEvent>;

/// Every mutex of the platform that this thread takes or gives back during `work`, in order.
LockEvents eventsOf(const std::function<void()>& work);

/// The mutexes behind lockSettings(), in the order in which it takes them.
struct SettingsMutexes {
    explicit SettingsMutexes(WifiHostSettings& settings);

    LockEvents taking() const { return {{true, all[0]}, {true, all[1]}}; }
    LockEvents givingBack() const { return {{false, all[1]}, {false, all[0]}}; }

    /// Whether an operation takes all in this order first, gives them back in reverse at last, and
    /// holds each of them without a gap in between.
    bool areHeldThroughout(const LockEvents& events) const;

    /// The events of these mutexes alone.
    LockEvents among(const LockEvents& events) const;

    /// Whether the lock of the list and then that of the settings are taken, held without a gap and
    /// given back in reverse order.
    bool pairIsHeldThroughout(const LockEvents& events) const;

    /// Whether a thread holds both locks of the pair.
    bool pairIsHeld() const;

    std::array<PlatformMutex*, 2> all{}; ///< list, settings
};

/// Returns when a thread has waited for a lock until its deadline, from now on.
void awaitLockTimeout();

/// Whether another thread could take it.
bool isFree(PlatformMutex* mutex);

} // namespace test
