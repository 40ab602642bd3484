// A client that never ends, in real time. HungChildTest.cpp tests the same steps with recorded
// pauses.

#include "supplicant/WifiUtil.h"

#include "support/ChildEnds.h"
#include "support/Leftovers.h"
#include "support/SignalAction.h"
#include "support/StandIn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <string>
#include <thread>

namespace {

constexpr auto UNTIL_KILL = std::chrono::milliseconds(99 * 50);
constexpr auto AFTER_KILL = std::chrono::milliseconds(2000);

struct Attempt {
    WifiUtil util;
    bool result = true;
    std::chrono::steady_clock::duration length{};

    void run(const std::string& resultFile) {
        const auto start = std::chrono::steady_clock::now();
        result = util.launchProcess("/proc/boot/wpa_cli", "scan", "-iwlan0", nullptr, nullptr,
                                    nullptr, resultFile.c_str());
        length = std::chrono::steady_clock::now() - start;
        std::remove(resultFile.c_str());
    }
};

TEST(Hang, IsEndedWithPausesThatEndEarlyAndWithPlainSleeps) {
    test::StandIn standIn;
    standIn.on({"*"}).hangs();
    const test::Leftovers before = test::Leftovers::now();
    Attempt watching;
    Attempt sleeping;
    bool refused = false;
    testing::internal::CaptureStderr();
    std::thread watchingThread([&] { watching.run("/tmp/watching_result_"); });
    std::thread sleepingThread([&] {
        refused = test::refuseChildEndNotification();
        sleeping.run("/tmp/sleeping_result_");
    });
    watchingThread.join();
    sleepingThread.join();
    const std::string messages = testing::internal::GetCapturedStderr();

    EXPECT_FALSE(watching.result);
    EXPECT_FALSE(sleeping.result);
    EXPECT_GE(watching.length, UNTIL_KILL);
    if (refused || !test::systemNotifiesOfChildEnd()) {
        EXPECT_GE(sleeping.length, UNTIL_KILL + AFTER_KILL);
    }
    EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 2) << messages;
    EXPECT_TRUE(test::Leftovers::now() == before);
    if (!refused)
        GTEST_SKIP() << "plain sleep could not be tried: no system call filter can be set here";
}

TEST(Hang, IsEndedWhereTheSystemReapsItsChildren) {
    test::StandIn standIn;
    standIn.on({"*"}).hangs();
    const test::Leftovers before = test::Leftovers::now();
    const test::SignalAction ignored(SIGCHLD, SIG_IGN);
    Attempt attempt;
    testing::internal::CaptureStderr();
    attempt.run("/tmp/reaped_result_");
    const std::string messages = testing::internal::GetCapturedStderr();
    EXPECT_FALSE(attempt.result);
    EXPECT_GE(attempt.length, UNTIL_KILL);
    EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 1) << messages;
    EXPECT_TRUE(test::Leftovers::now() == before);
}

TEST(ShortCommand, SucceedsWithoutNotificationOfTheChildsEnd) {
    test::StandIn standIn;
    standIn.on({"*"}).prints("OK\n").then().exits(3);
    bool refused = false;
    std::thread([&] {
        refused = test::refuseChildEndNotification();
        WifiUtil util;
        EXPECT_TRUE(util.saveConfiguration("wlan0"));
        EXPECT_FALSE(util.saveConfiguration("wlan0"));
    }).join();
    if (!refused)
        GTEST_SKIP() << "no system call filter can be set here";
}

} // namespace
