#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "RecordedLocks.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "supplicant/ReplyLines.h"

#include "support/Lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using platwifi::ReplyLines;
using test::isFree;
using test::LockEvents;
using test::SettingsMutexes;
using testing::IsEmpty;

namespace {

bool isHeldThroughout(const LockEvents& events, const PlatformMutex* mutex) {
    int depth = 0;
    for (std::size_t i = 0; i < events.size(); ++i) {
        if (events[i].mutex == mutex)
            depth += events[i].isLock ? 1 : -1;
        if (depth == 0 && i > 2 && i + 3 < events.size())
            return false;
    }
    return depth == 0;
}

struct Operation {
    const char* name;
    bool (*run)(WifiHostSettings&);
    bool result;
};

const Operation OPERATIONS[] = {
    {"AddANew", [](WifiHostSettings& s) { return s.addNetwork("wlan0", "new"); }, true},
    {"AddAKnown", [](WifiHostSettings& s) { return s.addNetwork("wlan0", "home"); }, false},
    {"AddNone", [](WifiHostSettings& s) { return s.addNetwork("wlan0", nullptr); }, false},
    {"Remove", [](WifiHostSettings& s) { return s.removeNetwork("wlan0", "home"); }, true},
    {"RemoveAnUnknown", [](WifiHostSettings& s) { return s.removeNetwork("wlan0", "x"); }, true},
    {"RemoveFails", [](WifiHostSettings& s) { return s.removeNetwork("", "home"); }, false},
    {"Connect", [](WifiHostSettings& s) { return s.connectNetwork("wlan0", "home"); }, true},
    {"ConnectAnUnknown", [](WifiHostSettings& s) { return s.connectNetwork("wlan0", "x"); }, false},
    {"ConnectFails", [](WifiHostSettings& s) { return s.connectNetwork("", "home"); }, false},
    {"Disconnect", [](WifiHostSettings& s) { return s.disconnectNetwork("wlan0", "home"); }, true},
    {"DisconnectAnUnknown", [](WifiHostSettings& s) { return s.disconnectNetwork("wlan0", "x"); },
     true},
    {"DisconnectFails", [](WifiHostSettings& s) { return s.disconnectNetwork("", "home"); }, false},
    {"Roam", [](WifiHostSettings& s) { return s.roamNetworks("wlan0"); }, true},
    {"RoamFails", [](WifiHostSettings& s) { return s.roamNetworks(""); }, false},
};

class LockedOperation : public testing::TestWithParam<Operation> {
protected:
    test::LoadedSettings loaded;
};

TEST_P(LockedOperation, HoldsBothLocksFromBeginningToEnd) {
    WifiHostSettings& settings =
        loaded.load("0\thome\tany\t\n1\twork\tany\t\n", "ssid=home\nwpa_state=COMPLETED\n");
    loaded.standIn.on({"-iwlan0", "add_network"}).prints("2\n");
    loaded.answer("OK\n");
    const SettingsMutexes locks(settings);
    const LockEvents events =
        test::eventsOf([&] { EXPECT_EQ(GetParam().run(settings), GetParam().result); });
    ASSERT_GE(events.size(), 6U);
    EXPECT_EQ(LockEvents(events.begin(), events.begin() + 3), locks.taking());
    EXPECT_EQ(LockEvents(events.end() - 3, events.end()), locks.givingBack());
    for (const PlatformMutex* const mutex : locks.all)
        EXPECT_TRUE(isHeldThroughout(events, mutex));
}

INSTANTIATE_TEST_SUITE_P(Every, LockedOperation, testing::ValuesIn(OPERATIONS),
                         [](const auto& test) { return std::string(test.param.name); });

class OtherLocks : public testing::Test {
protected:
    test::LoadedSettings loaded;
};

TEST_F(OtherLocks, AreThatOfTheListForTheSsids) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    const SettingsMutexes locks(settings);
    ReplyLines ssids(32);
    const LockEvents events = test::eventsOf(
        [&] { settings.getNetworkDatabaseSsids("wlan0", ssids.data(), 32, &ssids.count); });
    EXPECT_EQ(events, (LockEvents{{true, locks.all[0]},
                                  {true, locks.all[1]},
                                  {false, locks.all[1]},
                                  {false, locks.all[0]}}));
}

TEST_F(OtherLocks, AreNoneForALookupAndForTheAdapters) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    ReplyLines names(2);
    EXPECT_THAT(test::eventsOf([&] { settings.getWifiAdapters(names.data(), 2, &names.count); }),
                IsEmpty());
    EXPECT_THAT(test::eventsOf([&] { settings.getNetwork("wlan0", "home"); }), IsEmpty());
}

// OP-7
TEST_F(OtherLocks, AreLeftHeldByTheSsidsWhenANetworkHasNone) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n1\twork\tany\t\n");
    const SettingsMutexes locks(settings);
    {
        const platwifi::SettingsLock lock(settings);
        settings.getNetwork("wlan0", "home")->setSsid(nullptr);
    }
    ReplyLines first(32);
    EXPECT_TRUE(settings.getNetworkDatabaseSsids("wlan0", first.data(), 1, &first.count));
    EXPECT_TRUE(isFree(locks.all[0]) && isFree(locks.all[1])) << "it was not reached";

    ReplyLines ssids(32);
    EXPECT_FALSE(settings.getNetworkDatabaseSsids("wlan0", ssids.data(), 32, &ssids.count));
    EXPECT_THAT(test::toStrings(ssids), testing::ElementsAre("work"));
    EXPECT_EQ(ssids.data()[1], nullptr);
    EXPECT_FALSE(isFree(locks.all[0]));
    EXPECT_FALSE(isFree(locks.all[1]));
    EXPECT_TRUE(isFree(locks.all[2])) << "that of the state is not concerned";

    ReplyLines again(32);
    EXPECT_TRUE(settings.getNetworkDatabaseSsids("wlan0", again.data(), 1, &again.count))
        << "its holder still gets in";
    settings.unlockNetworks();
    EXPECT_TRUE(isFree(locks.all[0]) && isFree(locks.all[1])) << "held once";
}

} // namespace
