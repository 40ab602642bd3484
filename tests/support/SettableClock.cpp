#include "support/SettableClock.h"

#include "zam/Zam.h"

#include <mutex>

namespace {

std::mutex mutex; // not every processor has 64-bit atomics
std::uint64_t reading = 1000000;

} // namespace

std::uint64_t Zam::milliseconds() const noexcept {
    const std::lock_guard<std::mutex> guard(mutex);
    return reading;
}

namespace test {

void SettableClock::set(std::uint64_t milliseconds) {
    const std::lock_guard<std::mutex> guard(mutex);
    reading = milliseconds;
}

void SettableClock::advance(std::uint64_t milliseconds) {
    const std::lock_guard<std::mutex> guard(mutex);
    reading += milliseconds;
}

} // namespace test
