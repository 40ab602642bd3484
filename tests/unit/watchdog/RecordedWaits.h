#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace test {

/// The waits of the refresh thread in a program that is linked with this: a second of them passes in ten
/// milliseconds.
class RecordedWaits {
public:
    /// Forgets everything.
    static void reset();

    /// How many seconds each wait was for, in order.
    static std::vector<unsigned int> seconds();

    static std::size_t count() { return seconds().size(); }

    /// Returns when so many have begun.
    static void await(std::size_t count);

    /// Runs this on the refresh thread when it comes to the wait with this number, the first being 1.
    static void at(std::size_t number, std::function<void()> action);
};

} // namespace test
