#pragma once

#include <functional>

namespace test {

/// Stands in the place of the settings: keeps account of the reloads that the refresh thread asks for.
class Door {
public:
    /// Forgets everything.
    static void reset();

    /// What happens during a reload, on the refresh thread, after it was counted.
    static void during(std::function<void()> action);

    /// Says "not now" to the next so many.
    static void refuse(int times);

    static int calls();

    /// Waits until there were so many.
    static void awaitCalls(int count);
};

} // namespace test
