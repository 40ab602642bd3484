// Threads go on using the settings while others unload and reload them.

#include "settings/WifiHostSettings.h"

#include "supplicant/WifiUtil.h"
#include "support/Doing.h"
#include "support/Lines.h"
#include "support/LoadedHost.h"
#include "support/ThreadState.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <string>

using platwifi::ReplyLines;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const test::Arguments LIST{"-iwlan0", "list_networks"};

class Unload : public testing::Test {
protected:
    Unload() { host.answers({"home"}); }
    ~Unload() override {
        WifiHostSettings::unload();
        WifiUtil::unload();
    }

    static bool isRefreshThreadRunning() { return !test::threadsNamed("tWifiRefreshWat").empty(); }

    test::LoadedHost host;
};

// OP-9
TEST_F(Unload, LeavesTheInstanceAtItsAddress) {
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    WifiHostSettings::unload();
    EXPECT_EQ(WifiHostSettings::getInstance(nullptr), settings);
    EXPECT_EQ(WifiHostSettings::reload(nullptr), settings);
}

TEST_F(Unload, EndsTheRefreshThreadAndLeavesTheSharedBlock) {
    WifiHostSettings::getInstance(nullptr);
    EXPECT_TRUE(isRefreshThreadRunning());
    WifiHostSettings::unload();
    test::awaitNoThreadNamed("tWifiRefreshWat");
    EXPECT_NE(access("/dev/shm/wifi_shmem", F_OK), 0);
    WifiHostSettings::getInstance(nullptr);
    EXPECT_TRUE(isRefreshThreadRunning());
    EXPECT_EQ(access("/dev/shm/wifi_shmem", F_OK), 0);
}

struct Call {
    const char* name;
    std::function<bool(WifiHostSettings&)> succeeds; ///< which needs the networks or the adapters
};

bool knows(WifiHostSettings& settings) {
    settings.lockSettings();
    const bool found = settings.getNetwork("wlan0", "home") != nullptr;
    settings.unlockSettings();
    return found;
}

const Call CALLS[] = {
    {"lockSettings", knows},
    {"addNetwork", [](WifiHostSettings& s) { return !s.addNetwork("wlan0", "home"); }},
    {"connectNetwork", [](WifiHostSettings& s) { return s.connectNetwork("wlan0", "home"); }},
    {"disconnectNetwork",
     [](WifiHostSettings& s) { return s.disconnectNetwork("wlan0", "home") && knows(s); }},
    {"getNetworkDatabaseSsids",
     [](WifiHostSettings& s) {
         ReplyLines ssids(32);
         return s.getNetworkDatabaseSsids("wlan0", ssids.data(), 32, &ssids.count) &&
                ssids.count == 1;
     }},
    {"getWifiAdapters",
     [](WifiHostSettings& s) {
         ReplyLines names(2);
         return s.getWifiAdapters(names.data(), 2, &names.count) && names.count == 1;
     }},
    {"refreshAllSettings", [](WifiHostSettings& s) { return s.refreshAllSettings() && knows(s); }},
    {"refreshDatabaseNetworksStatus",
     [](WifiHostSettings& s) { return s.refreshDatabaseNetworksStatus() && knows(s); }},
};

class CallAfterUnload : public Unload, public testing::WithParamInterface<Call> {};

// As for a thread that got the instance just before another one unloaded it.
// OP-9
TEST_P(CallAfterUnload, FindsTheSettingsLoadedAgainOnce) {
    WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
    WifiHostSettings::unload();
    const std::size_t before = host.callsOf(LIST);
    EXPECT_TRUE(GetParam().succeeds(settings));
    EXPECT_EQ(host.callsOf(LIST), before + 1);
}

INSTANTIATE_TEST_SUITE_P(Every, CallAfterUnload, testing::ValuesIn(CALLS),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Unload, WaitsForTheHolderOfTheLocks) {
    WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
    settings.lockSettings();
    {
        const test::Doing other([] { WifiHostSettings::unload(); });
        other.awaitRest();
        EXPECT_FALSE(other.isDone());
        EXPECT_TRUE(settings.connectNetwork("wlan0", "home")) << "nothing has gone yet";
        settings.unlockSettings();
    }
    EXPECT_TRUE(settings.connectNetwork("wlan0", "home")) << "loaded again";
}

// OP-9
TEST_F(Unload, MayBeCalledByTheHolderOfTheLocksWhileAnotherThreadUnloads) {
    WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
    settings.lockSettings();
    {
        const test::Doing other([] { WifiHostSettings::unload(); });
        other.awaitRest();
        WifiHostSettings::unload();
        EXPECT_TRUE(knows(settings))
            << "loaded again for the holder, before the other one comes in";
        settings.unlockSettings();
    }
}

TEST_F(Unload, LeavesTheHoldersLocksBalanced) {
    WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
    settings.lockSettings();
    settings.lockSettings();
    WifiHostSettings::unload();
    EXPECT_TRUE(knows(settings));
    WifiHostSettings::reload(nullptr);
    settings.unlockSettings();
    std::promise<void> entered;
    {
        const test::Doing other([&] {
            knows(settings);
            entered.set_value();
        });
        other.awaitRest();
        EXPECT_FALSE(other.isDone());
        settings.unlockSettings();
    }
    entered.get_future().get();
}

TEST_F(Unload, OfTheDriverLeavesTheInstanceToThreadsThatUseIt) {
    WifiUtil* const util = WifiUtil::getInstance();
    WifiUtil::unload();
    ReplyLines lines(4);
    EXPECT_TRUE(util->getNetworkDatabaseSsids("wlan0", lines.data(), 4, &lines.count));
    EXPECT_THAT(test::toStrings(lines), ElementsAre("0\thome\tany\t"));
    EXPECT_EQ(WifiUtil::getInstance(), util);
}

TEST_F(Unload, OfTheDriverIsForgottenByNoCallThatFollows) {
    const std::string stamp = "12:34:56.789: ";
    host.reset();
    const test::Arguments interface { "interface" };
    host.on(interface)
        .prints("Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n")
        .then()
        .prints("Selected interface 'wlan0'\nAvailable interfaces:\n" + stamp + "wlan0\n");
    host.on({"-iwlan0", "status"}).prints(stamp + "wpa_state=COMPLETED\n");
    WifiUtil* const util = WifiUtil::getInstance();
    WifiUtil::unload();
    WifiUtil::getInstance();
    ReplyLines lines(4);
    EXPECT_TRUE(util->getCurrentNetworkStatus("wlan0", lines.data(), 4, &lines.count));
    EXPECT_THAT(test::toStrings(lines), ElementsAre("wpa_state=COMPLETED")) << "probed again";
}

// STATUS-2
TEST_F(Unload, DoesNotKeepAStatusThatWasJustRefreshedWaitingForALock) {
    WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
    std::promise<void> asked;
    std::promise<void> locked;
    const test::Doing holder([&] {
        settings.lockSettings();
        locked.set_value();
        asked.get_future().wait();
        settings.unlockSettings();
    });
    locked.get_future().wait();
    EXPECT_TRUE(settings.refreshDatabaseNetworksStatus());
    asked.set_value();
}

} // namespace
