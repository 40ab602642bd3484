// A client that never ends, with recorded pauses that take no time.

#include "supplicant/WifiUtil.h"

#include "ClientOperations.h"
#include "RealTime.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"
#include "support/TestTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sched.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace {

constexpr const char* RESULT = "/tmp/hung_child_result_test";

class HungChild : public testing::Test {
protected:
    HungChild() {
        time.childrenAreRecorded();
        time.sleepsAreRecorded();
        standIn.on({"*"}).hangs();
    }
    ~HungChild() override { std::remove(RESULT); }

    bool run(const char* command = "scan") {
        return util.launchProcess(test::CLIENT, command, "-iwlan0", nullptr, nullptr, nullptr,
                                  RESULT);
    }

    test::TestTime time;
    test::StandIn standIn;
    WifiUtil util;
};

std::vector<std::string> pausesAndThen(const std::vector<std::string>& rest) {
    std::vector<std::string> events(99, "pause 50");
    events.insert(events.end(), rest.begin(), rest.end());
    return events;
}

// CMD-2
TEST_F(HungChild, IsKilledAtThe100thLookAfter99Pauses) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run());
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(time.events(), pausesAndThen({"kill", "pause 2000"}))
        << "a pause, not a sleep: it ends with the child";
}

// CMD-2
TEST_F(HungChild, IsKilledAgainEvery2000MillisecondsWhileItRuns) {
    time.childrenAreRecorded(2);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run());
    const std::string messages = testing::internal::GetCapturedStderr();
    EXPECT_EQ(time.events(),
              pausesAndThen({"kill", "pause 2000", "kill", "pause 2000", "kill", "pause 2000"}));
    EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 3) << messages;
}

// CMD-6
TEST_F(HungChild, IsReportedWithProcessThreadAndCommand) {
    testing::internal::CaptureStderr();
    int thread = 0; // not the first one, whose id is the process's
    std::thread([&] {
        thread = PlatformUtil::threadId();
        EXPECT_FALSE(run("list_networks"));
    }).join();
    const std::string message = testing::internal::GetCapturedStderr();
    ASSERT_EQ(time.killed().size(), 1U);
    EXPECT_EQ(message, "[ERROR] Process: " + std::to_string(getpid()) + ", Thread " +
                           std::to_string(thread) +
                           " in WifiUtilBsd::launchProcess(), command: list_networks -> patience "
                           "exhausted, killing: " +
                           std::to_string(time.killed()[0]) + "\n");
}

TEST_F(HungChild, IsReportedWithoutACommandToo) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run(nullptr));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("command: (null) -> "),
              std::string::npos);
}

TEST_F(HungChild, LeavesNothingBehind) {
    const test::Leftovers before = test::Leftovers::now();
    testing::internal::CaptureStderr();
    std::vector<char*> lines(16, nullptr);
    unsigned char count = 9;
    EXPECT_FALSE(util.getCurrentNetworkStatus("wlan0", lines.data(), 16, &count));
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(test::Leftovers::now() == before);
}

// CMD-16
TEST_F(HungChild, IsKilledAtRaisedPriorityUpToTheHighestOfThePolicy) {
    const int highest = sched_get_priority_max(SCHED_RR);
    const std::pair<int, int> priorities[] = {
        {1, 26}, {highest - 25, highest}, {highest - 24, highest - 24}};
    testing::internal::CaptureStderr();
    const bool allowed = test::atEachPriority(priorities, [this](int raised) {
        sched_param own{};
        int policy = 0;
        pthread_getschedparam(pthread_self(), &policy, &own);
        time.clearRecord();
        EXPECT_FALSE(run());
        std::vector<int> expected(99 + 2, own.sched_priority);
        expected[99] = raised;
        EXPECT_EQ(time.priorities(), expected) << "for the kill alone";
    });
    testing::internal::GetCapturedStderr();
    if (!allowed)
        GTEST_SKIP() << "this machine allows no real-time scheduling";
}

} // namespace
