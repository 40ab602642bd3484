// Several threads call at the same time. Clients wait where a test wants it, as long as it wants.

#include "LoadedSettings.h"

#include "support/Checkpoint.h"
#include "support/Doing.h"
#include "support/ForeignSignal.h"
#include "support/ThreadState.h"

#include <atomic>
#include <filesystem>
#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

const test::Arguments INTERFACE{"interface"};
const test::Arguments LISTING{"-iwlan0", "list_networks"};

enum class NextLoad { SUCCEEDS, FAILS };

class TimingHazards : public test::SettingsTest {
protected:
    ~TimingHazards() override {
        WifiHostSettings::unload();
        test::awaitNoThreadNamed(test::REFRESH_THREAD);
    }

    /// Begins the rule for the lists of all loads. The answer continues at the caller.
    test::StandIn::Answer lists() {
        standIn.reset();
        return standIn.on(LISTING);
    }

    static std::string listed(const std::vector<std::string>& ssids) {
        return test::LoadedHost::listed(ssids);
    }

    /// Loads the settings. The next load waits at the checkpoint and then fails, or finds "office" in
    /// addition; a third one finds "third".
    void loadBefore(NextLoad next) {
        auto list = lists().prints(listed({"home"})).then().pausesAt(checkpoint.path());
        if (next == NextLoad::FAILS)
            list.exits(255);
        else
            list.prints(listed({"home", "office"})).then().prints(listed({"third"}));
        standIn.answers({});
        settings();
    }

    /// The refresh thread reloads, and waits at the checkpoint.
    void refreshElsewhere() {
        elsewhere.raise();
        checkpoint.awaitArrival();
    }

    test::Checkpoint checkpoint{"/tmp/checkpoint"};
    test::ForeignSignal elsewhere;
};

TEST_F(TimingHazards, FirstCallsAtTheSameTimeGetOneInstanceLoadedOnce) {
    lists().pausesAt(checkpoint.path()).prints(listed({"home"}));
    standIn.answers({});
    std::atomic<WifiHostSettings*> first{nullptr};
    std::atomic<WifiHostSettings*> second{nullptr};
    {
        const test::Doing one([&] { first = &settings(); });
        checkpoint.awaitArrival();
        const test::Doing two([&] { second = &settings(); });
        two.awaitRest();
        EXPECT_FALSE(two.isDone()) << "the settings are still being loaded";
        checkpoint.letGo();
    }
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_EQ(standIn.callsOf(LISTING), 1U);
    EXPECT_EQ(standIn.callsOf(INTERFACE), 1U);
}

TEST_F(TimingHazards, ARefreshSignalDuringTheFirstLoadIsAnsweredAfterIt) {
    test::Checkpoint again("/tmp/again");
    lists()
        .pausesAt(checkpoint.path())
        .prints(listed({"home"}))
        .then()
        .pausesAt(again.path())
        .prints(listed({"home", "office"}));
    standIn.answers({});
    {
        const test::Doing loading([] { settings(); });
        checkpoint.awaitArrival();
        elsewhere.raise();
        elsewhere.awaitTaken();
        EXPECT_FALSE(loading.isDone());
        EXPECT_EQ(standIn.callsOf(LISTING), 1U) << "the settings are not loaded twice at a time";
        checkpoint.letGo();
    }
    again.awaitArrival();
    again.letGo();
    EXPECT_THAT(ssids(), ElementsAre("office", "home"));
}

TEST_F(TimingHazards, AFirstLoadThatFailsEndsAlthoughARefreshIsDue) {
    lists().pausesAt(checkpoint.path()).exits(255).then().prints(listed({"home"}));
    standIn.answers({});
    {
        const test::Doing loading([] { settings(); });
        checkpoint.awaitArrival();
        elsewhere.raise();
        elsewhere.awaitTaken();
        checkpoint.letGo();
    }
    EXPECT_THAT(ssids(), IsEmpty());
    reload();
    EXPECT_THAT(ssids(), ElementsAre("home"));
}

TEST_F(TimingHazards, UnloadWaitsForAReloadOfTheRefreshThread) {
    loadBefore(NextLoad::SUCCEEDS);
    refreshElsewhere();
    {
        const test::Doing unloading([] { WifiHostSettings::unload(); });
        unloading.awaitRest();
        EXPECT_FALSE(unloading.isDone());
        checkpoint.letGo();
    }
    test::awaitNoThreadNamed(test::REFRESH_THREAD);
    EXPECT_THAT(ssids(), ElementsAre("third"));
}

TEST_F(TimingHazards, UnloadEndsAlthoughTheReloadOfTheRefreshThreadFails) {
    loadBefore(NextLoad::FAILS);
    refreshElsewhere();
    const test::Doing unloading([] { WifiHostSettings::unload(); });
    unloading.awaitRest();
    checkpoint.letGo();
}

// OP-10
TEST_F(TimingHazards, UnloadEndsAlthoughARefreshIsDue) {
    loadBefore(NextLoad::FAILS);
    standIn.reset();
    elsewhere.raise();
    WifiHostSettings::unload();
}

TEST_F(TimingHazards, CallsThatWaitForTheListReturnWhenAFailedReloadEmptiesIt) {
    loadBefore(NextLoad::FAILS);
    refreshElsewhere();
    std::vector<std::string> found{"home"};
    bool connected = true;
    bool removed = false;
    {
        std::vector<std::unique_ptr<test::Doing>> waiting;
        const auto wait = [&waiting](auto body) {
            waiting.push_back(std::make_unique<test::Doing>(body));
            waiting.back()->awaitRest();
            EXPECT_FALSE(waiting.back()->isDone());
        };
        wait([] { EXPECT_EQ(statusOf("home"), 0U); });
        wait([&] { connected = settings().connectNetwork("wlan0", "home"); });
        wait([&] { removed = settings().removeNetwork("wlan0", "home"); });
        wait([&] { found = ssids(); });
        checkpoint.letGo();
    }
    EXPECT_FALSE(connected);
    EXPECT_TRUE(removed) << "it is not there any more";
    EXPECT_THAT(found, IsEmpty());
}

TEST_F(TimingHazards, AReloadThatFailsOnTheRefreshThreadEndsThatThread) {
    loadBefore(NextLoad::FAILS);
    EXPECT_THAT(test::threadsNamed(test::REFRESH_THREAD), SizeIs(1));
    refreshElsewhere();
    checkpoint.letGo();
    test::awaitNoThreadNamed(test::REFRESH_THREAD);
    EXPECT_THAT(ssids(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists("/dev/shm/wifi_shmem")) << "the watchdog is destroyed";
    load("0\thome\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("home"));
    EXPECT_THAT(test::threadsNamed(test::REFRESH_THREAD), SizeIs(1));
}

TEST_F(TimingHazards, AReloadThatFailsElsewhereStopsTheRefreshThreadAlthoughARefreshIsDue) {
    loadBefore(NextLoad::FAILS);
    {
        const test::Doing reloading([] { settings().refreshAllSettings(); });
        checkpoint.awaitArrival();
        elsewhere.raise();
        elsewhere.awaitTaken();
        checkpoint.letGo();
    }
    test::awaitNoThreadNamed(test::REFRESH_THREAD);
    EXPECT_THAT(ssids(), IsEmpty());
}

TEST_F(TimingHazards, ARefreshWhileTheSettingsAreInUseIsNotLost) {
    loadBefore(NextLoad::SUCCEEDS);
    settings().lockSettings();
    elsewhere.raise();
    elsewhere.awaitTaken();
    settings().unlockSettings();
    checkpoint.awaitArrival();
    checkpoint.letGo();
    EXPECT_THAT(ssids(), ElementsAre("office", "home"));
}

TEST_F(TimingHazards, AdaptersAreAvailableDuringAReload) {
    loadBefore(NextLoad::SUCCEEDS);
    refreshElsewhere();
    char* names[2] = {nullptr, nullptr};
    unsigned char count = 9;
    EXPECT_TRUE(settings().getWifiAdapters(names, 2, &count));
    EXPECT_EQ(count, 1U);
    delete[] names[0];
    checkpoint.letGo();
}

} // namespace
