// A client that never ends, in real time: the one slow test of the runner. The steps in between are
// tested with a recorded clock.

#include "supplicant/WifiUtil.h"

#include "support/ChildEnds.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <string>
#include <thread>

namespace {

constexpr auto PATIENCE = std::chrono::milliseconds(99 * 50);
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

TEST(Hang, IsEndedWhicheverWayThePausesAreMade) {
    test::StandIn standIn;
    standIn.on({"*"}).hangs();
    const test::Leftovers before = test::Leftovers::now();
    Attempt watching;
    Attempt sleeping;
    bool refused = false;
    testing::internal::CaptureStderr();
    std::thread watchingThread([&] { watching.run("/tmp/watching_result_"); });
    std::thread sleepingThread([&] {
        refused = test::refuseToTellEnds();
        sleeping.run("/tmp/sleeping_result_");
    });
    watchingThread.join();
    sleepingThread.join();
    const std::string messages = testing::internal::GetCapturedStderr();

    EXPECT_FALSE(watching.result);
    EXPECT_FALSE(sleeping.result);
    EXPECT_GE(watching.length, PATIENCE);
    if (refused || !test::systemTellsEnds()) {
        EXPECT_GE(sleeping.length, PATIENCE + AFTER_KILL);
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
    struct sigaction ignore {};
    struct sigaction standard {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGCHLD, &ignore, &standard);
    Attempt attempt;
    testing::internal::CaptureStderr();
    attempt.run("/tmp/reaped_result_");
    const std::string messages = testing::internal::GetCapturedStderr();
    sigaction(SIGCHLD, &standard, nullptr);
    EXPECT_FALSE(attempt.result);
    EXPECT_GE(attempt.length, PATIENCE);
    EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 1) << messages;
    EXPECT_TRUE(test::Leftovers::now() == before);
}

TEST(ShortCommand, SucceedsWhereTheSystemDoesNotTellEnds) {
    test::StandIn standIn;
    standIn.on({"*"}).prints("OK\n").then().exits(3);
    bool refused = false;
    std::thread([&] {
        refused = test::refuseToTellEnds();
        WifiUtil util;
        EXPECT_TRUE(util.saveConfiguration("wlan0"));
        EXPECT_FALSE(util.saveConfiguration("wlan0"));
    }).join();
    if (!refused)
        GTEST_SKIP() << "no system call filter can be set here";
}

} // namespace
