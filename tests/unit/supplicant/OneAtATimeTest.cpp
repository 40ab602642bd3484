// What other threads may do while a client runs. The client waits until the test opens its gate.

#include "supplicant/WifiUtil.h"

#include "support/Doing.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* GATE = "/tmp/gate";
constexpr const char* FIRST = "/tmp/first_result_test";
constexpr const char* SECOND = "/tmp/second_result_test";

bool launch(WifiUtil& util, const char* resultFile) {
    return util.launchProcess("/proc/boot/wpa_cli", "status", nullptr, nullptr, nullptr, nullptr,
                              resultFile);
}

class OneAtATime : public testing::Test {
protected:
    // The gate is a named pipe. Opening it for writing waits for the reader, and the reverse.
    // Without a gate the client ends at once.
    OneAtATime() {
        const std::string client = standIn.folder() + "/wpa_cli";
        std::filesystem::remove(client);
        std::ofstream(client) << "#!/bin/sh\nread line <" << GATE << "\nexit 0\n";
        std::filesystem::permissions(client, std::filesystem::perms::owner_all);
        EXPECT_EQ(mkfifo(GATE, 0600), 0);
    }
    ~OneAtATime() override {
        for (const char* file : {GATE, FIRST, SECOND})
            std::remove(file);
    }

    void awaitClient() { m_gate = open(GATE, O_WRONLY | O_CLOEXEC); }
    void openGate() {
        std::remove(GATE);
        close(m_gate);
    }

    test::StandIn standIn;
    WifiUtil util;

private:
    int m_gate = -1;
};

// CMD-1
TEST_F(OneAtATime, ASecondLaunchDoesNotTouchItsResultFileBeforeTheFirstIsOver) {
    const test::Doing first([this] { EXPECT_TRUE(launch(util, FIRST)); });
    awaitClient();
    const test::Doing second([this] { EXPECT_TRUE(launch(util, SECOND)); });
    second.awaitRest();
    EXPECT_FALSE(std::filesystem::exists(SECOND));
    EXPECT_EQ(test::Leftovers::now().children, 1U);
    openGate();
}

TEST_F(OneAtATime, TheDestructorWaitsForTheLaunchInProgress) {
    auto* const shortLived = new WifiUtil;
    const test::Doing launching([shortLived] { EXPECT_TRUE(launch(*shortLived, FIRST)); });
    awaitClient();
    const test::Doing ending([shortLived] { delete shortLived; });
    ending.awaitRest();
    EXPECT_FALSE(ending.isDone());
    openGate();
}

TEST_F(OneAtATime, OtherThreadsWaitUntilTheInstanceIsProbed) {
    {
        const test::Doing first([] { EXPECT_NE(WifiUtil::getInstance(), nullptr); });
        awaitClient();
        const test::Doing second([] { EXPECT_NE(WifiUtil::getInstance(), nullptr); });
        second.awaitRest();
        EXPECT_FALSE(second.isDone());
        openGate();
    }
    WifiUtil::unload();
}

TEST_F(OneAtATime, TheResultFileIsOpenInTheClientOnly) {
    const test::Doing launching([this] { EXPECT_TRUE(launch(util, FIRST)); });
    awaitClient();
    launching.awaitRest();
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the folder's own descriptor
        EXPECT_NE(std::filesystem::read_symlink(entry, gone), FIRST);
    }
    openGate();
}

} // namespace
