#pragma once

#include <cstdint>

namespace test {

/// The runtime's clock of a program that is linked with this: it stands still, and a test moves it.
class SettableClock {
public:
    static void set(std::uint64_t milliseconds);
    static void advance(std::uint64_t milliseconds);
};

} // namespace test
