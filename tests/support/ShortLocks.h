#pragma once

#include <chrono>

namespace test {

/// Replaces PlatformUtil::lockMutexUntil() in a test program that is linked with it: each wait
/// takes a hundredth of its time and is recorded.
class ShortLocks {
public:
    static void reset();

    /// The number of waits since reset() that ended without the lock.
    static int timeouts();

    /// Returns when timeouts() is at least `count`.
    static void awaitTimeouts(int count);

    /// The longest time of a wait since reset(), as it was asked for.
    static std::chrono::milliseconds longest();
};

} // namespace test
