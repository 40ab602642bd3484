// What other threads may do while a client runs. The client pauses until the test lets it continue.

#include "supplicant/WifiUtil.h"

#include "support/Checkpoint.h"
#include "support/Doing.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

namespace {

constexpr const char* FIRST = "/tmp/first_result_test";
constexpr const char* SECOND = "/tmp/second_result_test";

bool launch(WifiUtil& util, const char* resultFile) {
    return util.launchProcess("/proc/boot/wpa_cli", "status", nullptr, nullptr, nullptr, nullptr,
                              resultFile);
}

class OneAtATime : public testing::Test {
protected:
    OneAtATime() { standIn.on({"*"}).pausesAt(checkpoint.path()).then(); }
    ~OneAtATime() override {
        for (const char* file : {FIRST, SECOND})
            std::remove(file);
    }

    test::Checkpoint checkpoint{"/tmp/checkpoint"}; // of the first client
    test::StandIn standIn;
    WifiUtil util;
};

// CMD-1
TEST_F(OneAtATime, ASecondLaunchDoesNotTouchItsResultFileBeforeTheFirstIsOver) {
    const test::Doing first([this] { EXPECT_TRUE(launch(util, FIRST)); });
    checkpoint.awaitArrival();
    const test::Doing second([this] { EXPECT_TRUE(launch(util, SECOND)); });
    second.awaitRest();
    EXPECT_FALSE(std::filesystem::exists(SECOND));
    EXPECT_EQ(test::Leftovers::now().children, 1U);
    checkpoint.letGo();
}

TEST_F(OneAtATime, TheDestructorWaitsForTheLaunchInProgress) {
    auto* const launcher = new WifiUtil;
    const test::Doing launching([launcher] { EXPECT_TRUE(launch(*launcher, FIRST)); });
    checkpoint.awaitArrival();
    const test::Doing destroying([launcher] { delete launcher; });
    destroying.awaitRest();
    EXPECT_FALSE(destroying.isDone());
    checkpoint.letGo();
}

TEST_F(OneAtATime, OtherThreadsWaitUntilTheInstanceIsProbed) {
    {
        const test::Doing first([] { EXPECT_NE(WifiUtil::getInstance(), nullptr); });
        checkpoint.awaitArrival();
        const test::Doing second([] { EXPECT_NE(WifiUtil::getInstance(), nullptr); });
        second.awaitRest();
        EXPECT_FALSE(second.isDone());
        checkpoint.letGo();
    }
    WifiUtil::unload();
}

TEST_F(OneAtATime, TheResultFileIsOpenInTheClientOnly) {
    const test::Doing launching([this] { EXPECT_TRUE(launch(util, FIRST)); });
    checkpoint.awaitArrival();
    launching.awaitRest();
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the folder's own descriptor
        EXPECT_NE(std::filesystem::read_symlink(entry, gone), FIRST);
    }
    checkpoint.letGo();
}

} // namespace
