#include "support/SettableClock.h"

#include "zam/Zam.h"

#include <atomic>

namespace {

std::atomic<std::uint64_t> reading{1000000};

} // namespace

std::uint64_t Zam::milliseconds() const noexcept {
    return reading;
}

namespace test {

void SettableClock::set(std::uint64_t milliseconds) {
    reading = milliseconds;
}

void SettableClock::advance(std::uint64_t milliseconds) {
    reading += milliseconds;
}

} // namespace test
