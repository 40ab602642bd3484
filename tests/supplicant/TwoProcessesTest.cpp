// Two processes with a copy of the settings each.

#include "SettingsTest.h"
#include "unit/watchdog/BlockView.h"
#include "unit/watchdog/Peer.h"

#include <chrono>
#include <functional>
#include <thread>

using test::openNetworks;
using test::WLAN;

namespace {

constexpr std::chrono::seconds MAX_WAIT{300}; // in case that the signal never comes
constexpr std::chrono::milliseconds POLL_INTERVAL{20};

testing::AssertionResult becomesTrue(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + MAX_WAIT;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return testing::AssertionFailure() << "timed out";
        std::this_thread::sleep_for(POLL_INTERVAL);
    }
    return testing::AssertionSuccess();
}

class TwoProcesses : public test::SettingsTest {
protected:
    // A process that detached before has removed the block's name: both attach to a new block.
    TwoProcesses() {
        load(openNetworks({"home"}));
        WifiHostSettings::reload(nullptr);
        EXPECT_EQ(peer.ask("has home"), "yes");
    }

    // A reload of this process discards the mark.
    static void setMark() { changePriority("home", 9); }

    static bool hasMark() { return loaded("home", "priority") == "9"; }

    test::Peer peer;
};

TEST_F(TwoProcesses, ReloadWhenTheOtherOneHasSaved) {
    EXPECT_EQ(test::BlockView()->attachCount, 2u);
    addOpen("mine");
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    setMark();
    EXPECT_TRUE(becomesTrue([&] { return peer.ask("has mine") == "yes"; }));
    EXPECT_TRUE(hasMark()) << "the process that saved does not reload";

    EXPECT_EQ(peer.ask("add theirs"), "yes");
    EXPECT_EQ(peer.ask("save -"), "yes");
    EXPECT_TRUE(becomesTrue([] { return !hasMark(); }));
    EXPECT_THAT(loadedSsids(), testing::ElementsAre("theirs", "mine", "home"));
    expectAllAsConfigured();
}

} // namespace
