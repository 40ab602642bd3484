#include "zam/Zam.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

std::uint64_t monotonicMilliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

TEST(Zam, IsOneForAllThreads) {
    Zam* const zam = Zam::getInstance();
    ASSERT_NE(zam, nullptr);
    std::thread([zam] { EXPECT_EQ(Zam::getInstance(), zam); }).join();
}

TEST(Zam, ReturnsTheMonotonicClockInMilliseconds) {
    for (int i = 0; i < 1000; ++i) {
        const std::uint64_t before = monotonicMilliseconds();
        const std::uint64_t reading = Zam::getInstance()->milliseconds();
        EXPECT_LE(before, reading);
        EXPECT_LE(reading, monotonicMilliseconds());
    }
}

} // namespace
