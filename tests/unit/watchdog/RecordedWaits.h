#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace test {

/// Records the waits of the refresh thread in a program that is linked with this. A second of such
/// a wait takes ten milliseconds.
class RecordedWaits {
public:
    /// Clears the record and the actions.
    static void reset();

    /// The seconds that each wait was asked for, in order.
    static std::vector<unsigned int> seconds();

    static std::size_t count() { return seconds().size(); }

    /// Returns when this many waits have begun.
    static void await(std::size_t count);

    /// Runs this on the refresh thread when it begins the wait with this number. The first wait is
    /// 1.
    static void at(std::size_t number, std::function<void()> action);
};

} // namespace test
