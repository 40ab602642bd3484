// Two processes with a copy of the settings each.

#include "SettingsTest.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "unit/watchdog/BlockView.h"
#include "unit/watchdog/Peer.h"

#include <chrono>
#include <functional>
#include <thread>

using test::openNetworks;
using test::WLAN;

namespace {

// The last resort against waiting for ever; a signal takes some seconds.
constexpr std::chrono::seconds LONG_ENOUGH{300};
constexpr std::chrono::milliseconds BETWEEN_LOOKS{20};

testing::AssertionResult comesAbout(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + LONG_ENOUGH;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return testing::AssertionFailure() << "waited in vain";
        std::this_thread::sleep_for(BETWEEN_LOOKS);
    }
    return testing::AssertionSuccess();
}

class TwoProcesses : public test::SettingsTest {
protected:
    // The name of the shared block is gone once a process has left it: both start afresh.
    TwoProcesses() {
        load(openNetworks({"home"}));
        WifiHostSettings::reload(nullptr);
        EXPECT_EQ(peer.ask("has home"), "yes");
    }

    static void addOpenNetwork(const char* ssid) {
        const platwifi::SettingsLock lock(settings());
        EXPECT_TRUE(settings().addNetwork(WLAN, ssid));
        settings().getNetwork(WLAN, ssid)->setKeyManagement(KEY_MGMT_NONE);
    }

    // Lost when this process reloads.
    static void leaveAMark() {
        const platwifi::SettingsLock lock(settings());
        settings().getNetwork(WLAN, "home")->setPriority(9);
    }

    static bool hasMark() { return loaded("home", "priority") == "9"; }

    test::Peer peer;
};

TEST_F(TwoProcesses, ReloadWhenTheOtherOneHasSaved) {
    EXPECT_EQ(test::BlockView()->attachCount, 2u);
    addOpenNetwork("mine");
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    leaveAMark();
    EXPECT_TRUE(comesAbout([&] { return peer.ask("has mine") == "yes"; }));
    EXPECT_TRUE(hasMark()) << "who has saved does not reload";

    EXPECT_EQ(peer.ask("add theirs"), "yes");
    EXPECT_EQ(peer.ask("save -"), "yes");
    EXPECT_TRUE(comesAbout([] { return !hasMark(); }));
    EXPECT_THAT(loadedSsids(), testing::ElementsAre("theirs", "mine", "home"));
    expectAllAsConfigured();
}

} // namespace
