#pragma once

#include <cstdint>

namespace test {

/// Replaces the clock of Zam in a program that is linked with it. The time changes only when a test
/// sets it.
class SettableClock {
public:
    static void set(std::uint64_t milliseconds);
    static void advance(std::uint64_t milliseconds);
};

} // namespace test
