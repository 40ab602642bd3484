#include "supplicant/WifiUtil.h"

#include "support/Lines.h"
#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

using platwifi::ReplyLines;
using test::Arguments;
using testing::Each;
using testing::ElementsAre;

namespace {

const std::string STAMPED = "12:34:56.789: ";
const std::string HEADER = "Selected interface 'wlan0'\nAvailable interfaces:\n";
const Arguments PROBE{"/proc/boot/wpa_cli", "interface"};

class Instance : public testing::Test {
protected:
    ~Instance() override { WifiUtil::unload(); }

    // Stamps are removed exactly when the probe has seen one.
    static bool removesStamps() {
        ReplyLines status(16);
        EXPECT_TRUE(WifiUtil::getInstance()->getCurrentNetworkStatus("wlan0", status.data(), 16,
                                                                     &status.count));
        return test::toStrings(status) == std::vector<std::string>{"wpa_state=COMPLETED"};
    }

    void answerStatus() {
        standIn.on({"-iwlan0", "status"}).prints(STAMPED + "wpa_state=COMPLETED\n");
    }

    test::StandIn standIn;
};

TEST_F(Instance, IsMadeAndProbedOnce) {
    standIn.on({"interface"}).prints(HEADER + "wlan0\n");
    WifiUtil* const first = WifiUtil::getInstance();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(WifiUtil::getInstance(), first);
    EXPECT_THAT(standIn.calls(), ElementsAre(PROBE));
}

TEST_F(Instance, IsProbedAgainAfterItWasUnloaded) {
    standIn.on({"interface"}).prints(HEADER + "wlan0\n");
    WifiUtil::getInstance();
    WifiUtil::unload();
    WifiUtil::unload();
    ASSERT_NE(WifiUtil::getInstance(), nullptr);
    EXPECT_THAT(standIn.calls(), ElementsAre(PROBE, PROBE));
}

// REPLY-10
TEST_F(Instance, ExpectsStampsIfTheFirstAdapterOfTheProbeHasOne) {
    const struct {
        std::string adapters;
        int status;
        bool stamps;
    } rows[] = {
        {STAMPED + "wlan0\n", 0, true},
        {"12:34:56\n", 0, true}, // two integers and a real number
        {"1:2:3wlan0\n", 0, true},
        {" 0:0:.5 \n", 0, true},
        {"wlan0\n", 0, false},
        {"12:34 wlan0\n", 0, false},
        {"12:xx:56.789: wlan0\n", 0, false},
        {"a:b:c: wlan0\n", 0, false},
        {"p2p-dev-wlan0\nwlan0\n", 0, false},
        {"\n", 0, false},
        {"", 0, false},
        {"wlan0\n" + STAMPED + "wlan1\n", 0, false},
        {STAMPED + "wlan0\n", 255, false}, // the probe failed
    };
    for (const auto& row : rows) {
        standIn.reset();
        WifiUtil::unload();
        standIn.on({"interface"}).prints(HEADER + row.adapters).exits(row.status);
        answerStatus();
        EXPECT_EQ(removesStamps(), row.stamps) << row.adapters << row.status;
    }
}

TEST_F(Instance, KeepsTheResultOfTheProbe) {
    standIn.on({"interface"}).prints(HEADER + STAMPED + "wlan0\n").then().prints("x\ny\nwlan0\n");
    answerStatus();
    EXPECT_TRUE(removesStamps());
    EXPECT_TRUE(removesStamps());
}

TEST_F(Instance, IsOneForThreadsThatCallAtTheSameTime) {
    standIn.on({"interface"}).prints(HEADER + "wlan0\n");
    std::vector<WifiUtil*> seen(8, nullptr);
    std::vector<std::thread> threads;
    for (WifiUtil*& instance : seen)
        threads.emplace_back([&instance] { instance = WifiUtil::getInstance(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(seen, Each(seen[0]));
    EXPECT_THAT(standIn.calls(), ElementsAre(PROBE)) << "probed once";
}

} // namespace
