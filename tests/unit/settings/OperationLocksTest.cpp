// The locks that operations and copies take.

#include "LoadedSettings.h"
#include "RecordedLocks.h"

#include "support/Lines.h"

using platwifi::ReplyLines;
using test::isFree;
using test::LockEvents;
using test::SettingsMutexes;
using testing::IsEmpty;

namespace {

class OperationLocks : public test::SettingsTest {
protected:
    OperationLocks() {
        load(test::LoadedHost::linesOf({"home", "work"}), "ssid=home\nwpa_state=COMPLETED\n");
        standIn.on({"-iwlan0", "add_network"}).prints("2\n");
        answer("OK\n");
    }

    static bool copySsids(ReplyLines& out, unsigned char capacity = 32) {
        return settings().getNetworkDatabaseSsids("wlan0", out.data(), capacity, &out.count);
    }

    const SettingsMutexes locks{settings()};
};

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

class LockedOperation : public OperationLocks, public testing::WithParamInterface<Operation> {};

TEST_P(LockedOperation, HoldsAllFromBeginningToEnd) {
    const LockEvents events =
        test::eventsOf([] { EXPECT_EQ(GetParam().run(settings()), GetParam().result); });
    EXPECT_TRUE(locks.areHeldThroughout(events));
}

INSTANTIATE_TEST_SUITE_P(Every, LockedOperation, testing::ValuesIn(OPERATIONS),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(OperationLocks, AreThatOfTheListForTheSsids) {
    ReplyLines ssids(32);
    EXPECT_EQ(test::eventsOf([&] { copySsids(ssids); }),
              (LockEvents{{true, locks.all[0]}, {false, locks.all[0]}}));
}

TEST_F(OperationLocks, AreNoneForALookupAndForTheAdapters) {
    ReplyLines names(2);
    EXPECT_THAT(test::eventsOf([&] { settings().getWifiAdapters(names.data(), 2, &names.count); }),
                IsEmpty());
    EXPECT_THAT(test::eventsOf([] { network("home"); }), IsEmpty());
}

// OP-7
TEST_F(OperationLocks, AreLeftHeldByTheSsidsWhenANetworkHasNone) {
    network("home")->setSsid(nullptr);
    ReplyLines first(32);
    EXPECT_TRUE(copySsids(first, 1));
    EXPECT_TRUE(isFree(locks.all[0])) << "it was not reached";

    ReplyLines ssids(32);
    EXPECT_FALSE(copySsids(ssids));
    EXPECT_THAT(test::toStrings(ssids), testing::ElementsAre("work"));
    EXPECT_EQ(ssids.data()[1], nullptr);
    EXPECT_FALSE(isFree(locks.all[0]));
    EXPECT_TRUE(isFree(locks.all[1])) << "that of the state is not concerned";

    ReplyLines again(32);
    EXPECT_TRUE(copySsids(again, 1)) << "the holder can take it again";
    settings().unlockNetworks();
    EXPECT_TRUE(isFree(locks.all[0])) << "held once";
}

} // namespace
