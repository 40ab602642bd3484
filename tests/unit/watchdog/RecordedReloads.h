#pragma once

#include <functional>

namespace test {

/// Takes the place of the reload hook of the settings, and records the calls of the refresh thread.
class RecordedReloads {
public:
    /// Clears the record, the action and the refusals.
    static void reset();

    /// Runs this during each reload, on the refresh thread, after the call was counted.
    static void during(std::function<void()> action);

    /// Makes the next reloads return false, this many times.
    static void refuse(int times);

    /// The number of calls.
    static int calls();

    /// Waits until there were this many calls.
    static void awaitCalls(int count);
};

} // namespace test
