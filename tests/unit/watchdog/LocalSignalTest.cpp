#include "watchdog/LocalSignal.h"

#include "support/Doing.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <climits>
#include <thread>

namespace {

using platwifi::LocalSignal;
using std::chrono::steady_clock;

TEST(LocalSignal, ReturnsZeroAfterTheTime) {
    LocalSignal signal;
    const auto start = steady_clock::now();
    EXPECT_EQ(signal.check(1), 0);
    EXPECT_GE(steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(signal.check(0), 0);
}

TEST(LocalSignal, RaisedBeforeIsSeenAfterTheWholeWait) {
    LocalSignal signal;
    signal.raise();
    const auto start = steady_clock::now();
    EXPECT_EQ(signal.check(1), -1);
    EXPECT_GE(steady_clock::now() - start, std::chrono::seconds(1));
}

TEST(LocalSignal, IsTakenBackByTheFirstCheck) {
    LocalSignal signal;
    signal.raise();
    signal.raise();
    EXPECT_EQ(signal.check(0), -1);
    EXPECT_EQ(signal.check(0), 0);
}

TEST(LocalSignal, IsTakenBackByReset) {
    LocalSignal signal;
    signal.raise();
    signal.reset();
    EXPECT_EQ(signal.check(0), 0);
}

TEST(LocalSignal, WakesAThreadThatWaits) {
    LocalSignal signal;
    const test::Doing waiting([&signal] { EXPECT_EQ(signal.check(UINT_MAX), -1); });
    waiting.awaitRest();
    EXPECT_FALSE(waiting.isDone());
    signal.raise();
    waiting.awaitEnd();
    EXPECT_EQ(signal.check(0), 0);
}

TEST(LocalSignal, WakesOneOfTwoThreadsThatWait) {
    LocalSignal signal;
    std::atomic<int> taken{0};
    const auto check = [&] {
        EXPECT_EQ(signal.check(UINT_MAX), -1);
        ++taken;
    };
    const test::Doing first(check);
    const test::Doing second(check);
    first.awaitRest();
    second.awaitRest();
    for (int raised = 1; raised <= 2; ++raised) {
        signal.raise();
        while (taken < raised)
            std::this_thread::yield();
    }
    first.awaitEnd();
    second.awaitEnd();
}

} // namespace
