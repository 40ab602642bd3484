#pragma once

#include <chrono>

namespace test {

/// Waits for locks with a time limit, in a test program that has its own PlatformUtil::lockMutexUntil():
/// it waits a hundredth as long and keeps account.
class ShortLocks {
public:
    static void reset();

    /// How many waits have ended without the lock since reset().
    static int timeouts();

    /// Returns when that many have.
    static void awaitTimeouts(int count);

    /// The longest time that was asked for since reset().
    static std::chrono::milliseconds longest();
};

} // namespace test
