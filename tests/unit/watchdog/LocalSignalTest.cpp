#include "watchdog/LocalSignal.h"

#include "platform/PlatformUtil.h"
#include "support/ThreadState.h"

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <future>
#include <thread>

namespace {

using platwifi::LocalSignal;
using std::chrono::steady_clock;

/// Another thread that waits for a signal.
struct Waiter {
    std::promise<int> id;
    std::future<int> result;

    Waiter(LocalSignal& signal, unsigned int seconds)
        : result(std::async(std::launch::async, [this, &signal, seconds] {
              id.set_value(PlatformUtil::threadId());
              return signal.check(seconds);
          })) {
        const int thread = id.get_future().get();
        while (!test::isAsleep(thread))
            std::this_thread::yield();
    }
};

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
    Waiter waiter(signal, UINT_MAX);
    signal.raise();
    EXPECT_EQ(waiter.result.get(), -1);
    EXPECT_EQ(signal.check(0), 0);
}

} // namespace
