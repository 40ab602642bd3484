// Starting a scan and waiting for it, with recorded sleeps that take no time.

#include "supplicant/WifiUtil.h"

#include "support/BlockedFile.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"
#include "support/TestTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

using test::Arguments;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Calls = std::vector<Arguments>;

const Arguments STATUS{"/proc/boot/wpa_cli", "-iwlan0", "status"};
const Arguments SCAN{"/proc/boot/wpa_cli", "-iwlan0", "scan"};

class Scan : public testing::Test {
protected:
    Scan() { time.sleepsAreRecorded(); }
    ~Scan() override {
        for (const std::string& file : test::resultFiles())
            std::remove(file.c_str());
    }

    test::StandIn::Answer onStatus(const std::string& state) {
        auto answer = standIn.on({"-iwlan0", "status"});
        answer.prints("bssid=02:00:00:00:01:00\nwpa_state=" + state + "\naddress=COMPLETED\n");
        return answer;
    }

    // The states of one read after another.
    void onStates(const std::vector<std::string>& states) {
        auto answer = onStatus(states[0]);
        for (std::size_t i = 1; i < states.size(); ++i)
            answer.then().prints("wpa_state=" + states[i] + "\n");
    }

    std::size_t secondsSlept() const {
        const auto events = time.events();
        return static_cast<std::size_t>(std::count(events.begin(), events.end(), "sleep 1000"));
    }

    test::TestTime time;
    test::StandIn standIn;
    WifiUtil util;
};

// SCAN-1
TEST_F(Scan, IsStartedInEveryStateButTheUnknownAndTheScanning) {
    const struct {
        const char* state;
        bool started;
    } rows[] = {
        {"DISCONNECTED", true},        {"INACTIVE", true},
        {"ASSOCIATING", true},         {"ASSOCIATED", true},
        {"4WAY_HANDSHAKE", true},      {"GROUP_HANDSHAKE", true},
        {"COMPLETED", true},           {"", false},
        {"INTERFACE_DISABLED", false},
    };
    for (const auto& row : rows) {
        standIn.reset();
        time.clearRecord();
        onStatus(row.state);
        standIn.on({"-iwlan0", "scan"}).prints("OK\n");
        EXPECT_TRUE(util.scanNetworks("wlan0")) << row.state;
        const Calls expected = row.started ? Calls{STATUS, SCAN, STATUS} : Calls{STATUS, STATUS};
        EXPECT_EQ(standIn.calls(), expected) << row.state;
        EXPECT_EQ(secondsSlept(), 1U) << "one status read and one second at least";
    }
}

// SCAN-1
TEST_F(Scan, IsNotStartedWhereOneRuns) {
    onStates({"SCANNING", "SCANNING", "SCANNING", "COMPLETED"});
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS, STATUS, STATUS, STATUS));
    EXPECT_EQ(secondsSlept(), 3U) << "after every read of the wait, the last one too";
}

// SCAN-2
TEST_F(Scan, IsWaitedForWith16ReadsAtMost) {
    onStatus("SCANNING");
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    EXPECT_EQ(standIn.calls().size(), 1U + 16U);
    EXPECT_EQ(secondsSlept(), 16U);
}

TEST_F(Scan, IsWaitedForAfterItWasStarted) {
    onStates({"COMPLETED", "SCANNING", "INACTIVE"});
    standIn.on({"-iwlan0", "scan"}).prints("OK\n");
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS, SCAN, STATUS, STATUS));
    EXPECT_EQ(secondsSlept(), 2U);
}

TEST_F(Scan, LetsOtherThreadsRunCommandsWhileItWaits) {
    onStatus("COMPLETED");
    standIn.on({"*"}).prints("OK\n");
    time.duringSleeps(
        [this] { std::thread([this] { EXPECT_TRUE(util.saveConfiguration("wlan0")); }).join(); });
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    const Arguments save{"/proc/boot/wpa_cli", "-iwlan0", "save_config"};
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS, SCAN, STATUS, save));
}

TEST_F(Scan, FailsWhenTheFirstStatusCannotBeRead) {
    onStatus("COMPLETED").exits(255);
    EXPECT_FALSE(util.scanNetworks("wlan0"));
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS));
    EXPECT_EQ(secondsSlept(), 0U);
}

TEST_F(Scan, FailsWhenTheCommandFails) {
    onStatus("COMPLETED");
    standIn.on({"-iwlan0", "scan"}).prints("OK\n").exits(255);
    EXPECT_FALSE(util.scanNetworks("wlan0"));
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS, SCAN));
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

// SCAN-3
TEST_F(Scan, SucceedsWhenTheSupplicantRefusesIt) {
    onStatus("COMPLETED");
    standIn.on({"-iwlan0", "scan"}).prints("FAIL-BUSY\n");
    EXPECT_TRUE(util.scanNetworks("wlan0")) << "the reply is not read";
}

// SCAN-2
TEST_F(Scan, SucceedsWhenAStatusCannotBeReadWhileItWaits) {
    onStatus("COMPLETED").then().exits(255);
    standIn.on({"-iwlan0", "scan"}).prints("OK\n");
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS, SCAN, STATUS));
    EXPECT_EQ(secondsSlept(), 0U) << "it ends at once";
}

TEST_F(Scan, TreatsAStatusWithoutAStateAsUnknown) {
    standIn.on({"-iwlan0", "status"}).prints("").then().prints("bssid=COMPLETED\n");
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS, STATUS));
}

TEST_F(Scan, LooksAt16StatusLinesOnly) {
    std::string reply;
    for (int i = 0; i < 15; ++i)
        reply += "line\n";
    standIn.on({"-iwlan0", "status"})
        .prints(reply + "line\nwpa_state=COMPLETED\n")
        .then()
        .prints("")
        .then()
        .prints(reply + "wpa_state=COMPLETED\n");
    standIn.on({"-iwlan0", "scan"}).prints("OK\n");
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS, STATUS)) << "the state came too late";
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    EXPECT_THAT(standIn.calls(), ElementsAre(STATUS, STATUS, STATUS, SCAN, STATUS));
}

// CMD-13
TEST_F(Scan, LeavesItsResultFileForTheNextScanOfTheThread) {
    onStatus("COMPLETED");
    standIn.on({"-iwlan0", "scan"}).prints("OK\n");
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    const std::string path = test::resultPath("/tmp/wpa_cli_scan_result_");
    EXPECT_THAT(test::resultFiles(), ElementsAre(path));
    EXPECT_TRUE(util.scanNetworks("wlan0"));
    EXPECT_THAT(test::resultFiles(), ElementsAre(path));
}

} // namespace
