// What happens when several threads come at the worst moment. Clients stand still where a test wants it,
// for as long as it wants.

#include "settings/WifiHostSettings.h"

#include "model/WifiNetwork.h"
#include "supplicant/WifiUtil.h"
#include "support/Checkpoint.h"
#include "support/Doing.h"
#include "support/ForeignSignal.h"
#include "support/LoadedHost.h"
#include "support/ThreadState.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <memory>
#include <vector>

using testing::SizeIs;

namespace {

const test::Arguments INTERFACE{"interface"};
const test::Arguments LIST{"-iwlan0", "list_networks"};

constexpr const char* REFRESH_THREAD = "tWifiRefreshWat"; // as much as the system keeps

class TimingHazards : public testing::Test {
protected:
    ~TimingHazards() override {
        WifiHostSettings::unload();
        WifiUtil::unload();
        test::awaitNoThreadNamed(REFRESH_THREAD);
    }

    /// The settings, loaded; the load after that stands still at `checkpoint` and then fails or not.
    WifiHostSettings& loadedSettings(bool nextLoadFails) {
        auto list = host.on(LIST).prints(host.listed({"home"})).then().pausesAt(checkpoint.path());
        if (nextLoadFails)
            list.exits(255);
        else
            list.prints(host.listed({"home", "office"})).then().prints(host.listed({"third"}));
        host.answers({});
        return *WifiHostSettings::getInstance(nullptr);
    }

    static bool hasNetwork(WifiHostSettings& settings, const char* ssid) {
        settings.lockSettings();
        const bool found = settings.getNetwork("wlan0", ssid) != nullptr;
        settings.unlockSettings();
        return found;
    }

    test::LoadedHost host;
    test::Checkpoint checkpoint{"/tmp/checkpoint"};
    test::ForeignSignal elsewhere;
};

TEST_F(TimingHazards, FirstCallsThatComeTogetherGetOneInstanceLoadedOnce) {
    host.on(LIST).pausesAt(checkpoint.path()).prints(host.listed({"home"}));
    host.answers({});
    std::atomic<WifiHostSettings*> first{nullptr};
    std::atomic<WifiHostSettings*> second{nullptr};
    {
        const test::Doing one([&] { first = WifiHostSettings::getInstance(nullptr); });
        checkpoint.awaitArrival();
        const test::Doing two([&] { second = WifiHostSettings::getInstance(nullptr); });
        two.awaitRest();
        EXPECT_FALSE(two.isDone()) << "nobody gets settings that are still being loaded";
        checkpoint.letGo();
    }
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_EQ(host.callsOf(LIST), 1U);
    EXPECT_EQ(host.callsOf(INTERFACE), 2U) << "one probe for stamps, one load";
}

TEST_F(TimingHazards, ARefreshSignalDuringConstructionIsAnsweredAfterIt) {
    test::Checkpoint again("/tmp/again");
    host.on(LIST)
        .pausesAt(checkpoint.path())
        .prints(host.listed({"home"}))
        .then()
        .pausesAt(again.path())
        .prints(host.listed({"home", "office"}));
    host.answers({});
    {
        const test::Doing making([] { WifiHostSettings::getInstance(nullptr); });
        checkpoint.awaitArrival();
        elsewhere.raise();
        elsewhere.awaitTaken();
        EXPECT_FALSE(making.isDone());
        EXPECT_EQ(host.callsOf(LIST), 1U) << "the settings are not loaded twice at a time";
        checkpoint.letGo();
    }
    WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr);
    again.awaitArrival();
    again.letGo();
    EXPECT_TRUE(hasNetwork(*settings, "office"));
    EXPECT_EQ(WifiHostSettings::getInstance(nullptr), settings);
}

TEST_F(TimingHazards, AConstructionThatFailsEndsThoughARefreshIsDue) {
    host.on(LIST).pausesAt(checkpoint.path()).exits(255).then().prints(host.listed({"home"}));
    host.answers({});
    {
        const test::Doing making([] { WifiHostSettings::getInstance(nullptr); });
        checkpoint.awaitArrival();
        elsewhere.raise();
        elsewhere.awaitTaken();
        checkpoint.letGo();
    }
    EXPECT_FALSE(hasNetwork(*WifiHostSettings::getInstance(nullptr), "home"));
    EXPECT_TRUE(hasNetwork(*WifiHostSettings::reload(nullptr), "home"));
}

TEST_F(TimingHazards, UnloadWaitsForAReloadOfTheRefreshThread) {
    loadedSettings(false);
    elsewhere.raise();
    checkpoint.awaitArrival();
    {
        const test::Doing unloading([] { WifiHostSettings::unload(); });
        unloading.awaitRest();
        EXPECT_FALSE(unloading.isDone());
        checkpoint.letGo();
    }
    test::awaitNoThreadNamed(REFRESH_THREAD);
    EXPECT_TRUE(hasNetwork(*WifiHostSettings::getInstance(nullptr), "third"));
}

TEST_F(TimingHazards, UnloadEndsThoughTheReloadOfTheRefreshThreadFails) {
    loadedSettings(true);
    elsewhere.raise();
    checkpoint.awaitArrival();
    const test::Doing unloading([] { WifiHostSettings::unload(); });
    unloading.awaitRest();
    checkpoint.letGo();
}

// OP-10
TEST_F(TimingHazards, UnloadEndsThoughARefreshIsDue) {
    host.answers({"home"});
    WifiHostSettings::getInstance(nullptr);
    elsewhere.raise();
    WifiHostSettings::unload();
}

TEST_F(TimingHazards, WhoWaitsForTheListsLockComesBackWhenAFailedReloadDestroysTheList) {
    WifiHostSettings& settings = loadedSettings(true);
    elsewhere.raise();
    checkpoint.awaitArrival();
    bool found = true;
    bool connected = true;
    bool removed = false;
    unsigned char ssids = 9;
    {
        std::vector<std::unique_ptr<test::Doing>> waiting;
        const auto wait = [&waiting](auto body) {
            waiting.push_back(std::make_unique<test::Doing>(body));
            waiting.back()->awaitRest();
            EXPECT_FALSE(waiting.back()->isDone());
        };
        wait([&] { found = hasNetwork(settings, "home"); });
        wait([&] { connected = settings.connectNetwork("wlan0", "home"); });
        wait([&] { removed = settings.removeNetwork("wlan0", "home"); });
        wait([&] {
            char* none[1] = {nullptr};
            EXPECT_TRUE(settings.getNetworkDatabaseSsids("wlan0", none, 1, &ssids));
        });
        checkpoint.letGo();
    }
    EXPECT_FALSE(found);
    EXPECT_FALSE(connected);
    EXPECT_TRUE(removed) << "it is not there any more";
    EXPECT_EQ(ssids, 0U);
}

TEST_F(TimingHazards, AReloadThatFailsOnTheRefreshThreadEndsThatThreadInGoodOrder) {
    WifiHostSettings& settings = loadedSettings(true);
    EXPECT_THAT(test::threadsNamed(REFRESH_THREAD), SizeIs(1));
    elsewhere.raise();
    checkpoint.awaitArrival();
    checkpoint.letGo();
    test::awaitNoThreadNamed(REFRESH_THREAD);
    EXPECT_FALSE(hasNetwork(settings, "home"));
    EXPECT_FALSE(std::filesystem::exists("/dev/shm/wifi_shmem")) << "the watchdog went with it";
    host.reset();
    host.answers({"home"});
    EXPECT_TRUE(hasNetwork(*WifiHostSettings::reload(nullptr), "home"));
    EXPECT_THAT(test::threadsNamed(REFRESH_THREAD), SizeIs(1));
}

TEST_F(TimingHazards, AReloadThatFailsElsewhereStopsTheRefreshThreadThoughARefreshIsDue) {
    WifiHostSettings& settings = loadedSettings(true);
    {
        const test::Doing reloading([&] { settings.refreshAllSettings(); });
        checkpoint.awaitArrival();
        elsewhere.raise();
        elsewhere.awaitTaken();
        checkpoint.letGo();
    }
    test::awaitNoThreadNamed(REFRESH_THREAD);
    EXPECT_FALSE(hasNetwork(settings, "home"));
}

TEST_F(TimingHazards, ARefreshThatComesWhileTheSettingsAreInUseIsNotLost) {
    WifiHostSettings& settings = loadedSettings(false);
    settings.lockSettings();
    elsewhere.raise();
    elsewhere.awaitTaken();
    settings.unlockSettings();
    checkpoint.awaitArrival();
    checkpoint.letGo();
    EXPECT_TRUE(hasNetwork(settings, "office"));
}

TEST_F(TimingHazards, AdapterNamesAreToldWhileAReloadGoesOn) {
    WifiHostSettings& settings = loadedSettings(false);
    elsewhere.raise();
    checkpoint.awaitArrival();
    char* names[2] = {nullptr, nullptr};
    unsigned char count = 9;
    EXPECT_TRUE(settings.getWifiAdapters(names, 2, &count));
    EXPECT_EQ(count, 1U);
    delete[] names[0];
    checkpoint.letGo();
}

} // namespace
