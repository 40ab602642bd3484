#pragma once

#include <functional>

namespace test {

/// What is left of the watchdog in a program that is linked with this instead: it has no thread and
/// no shared memory, and counts the signals after a save.
struct SaveSignals {
    static bool canInitialize;           ///< the result of initialize()
    static int count;                    ///< of the signals
    static std::function<void()> atEach; ///< runs at each signal; may be empty

    static void reset();
};

} // namespace test
