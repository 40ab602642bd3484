// Natives and flat functions that ask for the state of the supplicant.

#include "EitherInterface.h"
#include "TwoNetworks.h"

#include "model/WifiNetwork.h"
#include "support/TestTime.h"
#include "unit/settings/LoadedSettings.h"
#include "unit/settings/RecordedLocks.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ScriptedStatus {
protected:
    StandIn::Answer statusPrints(const std::string& reply) {
        auto answer = loaded.standIn.on({"-iwlan0", "status"});
        answer.prints(reply);
        return answer;
    }

    TestTime time{[](TestTime& t) { t.clockIs(1000000); }};
    LoadedSettings loaded;
};

// The state, and the current network.

class Status : public EitherInterface, public ScriptedStatus {
protected:
    int daemonStatus(const char* iface = "wlan0") {
        return isNative() ? number("getDaemonStatus0", {iface}) : getDaemonStatus(nullptr, iface);
    }

    // "(null)" for null.
    std::string current(const char* iface = "wlan0") {
        if (isNative())
            return text("getCurrentNetwork0", {iface});
        char before = 'x';
        char* ssid = &before;
        const int result = getCurrentNetwork(nullptr, iface, &ssid);
        const std::unique_ptr<char[]> owner(ssid);
        EXPECT_EQ(result, ssid ? 1 : 0);
        return ssid ? ssid : "(null)";
    }
};

TEST_P(Status, IsThatOfTheSupplicant) {
    loaded.load(NETWORKS);
    statusPrints(AT_HOME).then().prints("wpa_state=4WAY_HANDSHAKE\n").then().exits(255);
    EXPECT_EQ(daemonStatus(), 8);
    EXPECT_EQ(daemonStatus("any interface"), 6);
    EXPECT_EQ(daemonStatus(nullptr), 0);
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 status", "-iwlan0 status"));
    EXPECT_EQ(daemonStatus(), 0) << "no answer";
}

TEST_P(Status, IsZeroAndNullWithoutNetworks) {
    loaded.fail();
    EXPECT_EQ(daemonStatus(), 0);
    EXPECT_EQ(current(), "(null)");
}

TEST_P(Status, HasTheCurrentNetwork) {
    loaded.load(NETWORKS);
    statusPrints("bssid=x\nssid=work\nwpa_state=COMPLETED\n")
        .then()
        .prints("ssid=elsewhere\nwpa_state=COMPLETED\n")
        .then()
        .exits(255);
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(current(nullptr), "(null)");
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 status"));
    EXPECT_EQ(current(), "(null)") << "not configured";
    EXPECT_EQ(current(), "(null)") << "no answer";
    EXPECT_EQ(current("fourteen-chars"), "(null)");
}

TEST_P(Status, HasTheCurrentNetworkInAnyScript) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    const char* const ssid = "caf\xe9 \xf0\x9f\x98\x80";
    settings.getNetwork("wlan0", "home")->setSsid(ssid);
    statusPrints(std::string("ssid=") + ssid + "\n");
    EXPECT_EQ(current(), isNative() ? "caf\xed\xb3\xa9 \xed\xa0\xbd\xed\xb8\x80" : ssid);
}

TEST_P(Status, HasNoCurrentNetworkWithoutAnSsid) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    settings.getNetwork("wlan0", "home")->setSsid(nullptr);
    statusPrints("wpa_state=COMPLETED\n");
    ASSERT_NE(settings.getCurrentNetwork("wlan0"), nullptr);
    EXPECT_EQ(current(), "(null)");
}

TEST_P(Status, IsAskedForUnderTheLock) {
    const SettingsMutexes mutexes(loaded.load(NETWORKS, AT_HOME));
    for (const auto& ask : {std::function<void()>([this] { daemonStatus(nullptr); }),
                            std::function<void()>([this] { current(nullptr); })}) {
        const LockEvents events = eventsOf(ask);
        ASSERT_GE(events.size(), 4U);
        EXPECT_EQ(LockEvents(events.begin(), events.begin() + 2), mutexes.taking());
        EXPECT_EQ(LockEvents(events.end() - 2, events.end()), mutexes.givingBack());
    }
}

// Both refresh the status, which is due.
// STATUS-3
TEST_P(Status, IsReadFromTheSupplicantUnderTheLock) {
    const SettingsMutexes mutexes(loaded.load(NETWORKS));
    statusPrints("ssid=home\nwpa_state=COMPLETED\n");
    loaded.standIn.on({"-iwlan0", "list_networks"}).prints("header\n0\thome\tany\t[CURRENT]\n");
    for (const auto& ask : {std::function<void()>([this] { daemonStatus(); }),
                            std::function<void()>([this] { current(); })}) {
        const std::size_t commands = loaded.commands().size();
        time.advance(std::chrono::seconds(5));
        EXPECT_TRUE(mutexes.pairIsHeldThroughout(eventsOf(ask)));
        EXPECT_GT(loaded.commands().size(), commands);
    }
}

BY_EITHER_INTERFACE(Status);

TEST(CurrentNetworkFunction, NeedsAPlaceForTheSsid) {
    LoadedSettings loaded;
    loaded.load(NETWORKS);
    EXPECT_EQ(getCurrentNetwork(nullptr, "wlan0", nullptr), 0);
}

// Natives for one network.

class StatusNatives : public NativeCaller, public ScriptedStatus, public testing::Test {
protected:
    jint status(const char* ssid, const char* iface = "wlan0") {
        return number("getNetworkStatus0", {iface, ssid});
    }
};

TEST_F(StatusNatives, RefreshTheStatusOfANetworkFirst) {
    loaded.load(NETWORKS);
    loaded.standIn.on({"-iwlan0", "list_networks"})
        .prints("header\n0\thome\tany\t[CURRENT]\n3\twork\tany\t[DISABLED]\n");
    loaded.answer("FAIL\n", 255);
    time.advance(std::chrono::milliseconds(4999));
    EXPECT_EQ(status("home"), 1) << "as it was loaded";
    EXPECT_THAT(loaded.commands(), IsEmpty());
    time.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(status("home"), 4);
    EXPECT_EQ(status("work"), 5);
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 list_networks", "-iwlan0 scan_results"));
}

TEST_F(StatusNatives, RefreshTheStatusAlsoForAnUnknownNetwork) {
    loaded.load(NETWORKS);
    loaded.answer("FAIL\n", 255);
    time.advance(std::chrono::seconds(5));
    EXPECT_EQ(status("other"), 0);
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 list_networks"));
    EXPECT_EQ(status(nullptr), 0);
    EXPECT_EQ(status("", nullptr), 0);
    EXPECT_EQ(status("home", nullptr), 1) << "any interface";
}

// STATUS-3
TEST_F(StatusNatives, RefreshTheStatusUnderTheLock) {
    const SettingsMutexes mutexes(loaded.load(NETWORKS));
    statusPrints(AT_HOME);
    loaded.standIn.on({"-iwlan0", "list_networks"}).prints("header\n0\thome\tany\t[CURRENT]\n");
    time.advance(std::chrono::seconds(5));
    EXPECT_TRUE(mutexes.pairIsHeldThroughout(eventsOf([this] { status("home"); })));
    EXPECT_THAT(loaded.commands(), testing::Contains("-iwlan0 list_networks"));
    for (PlatformMutex* const mutex : mutexes.all)
        EXPECT_TRUE(isFree(mutex));
}

// Another thread could free the SSID after the unlock.
// STATUS-3
TEST_F(StatusNatives, HoldTheLockWhileTheStringOfTheCurrentNetworkIsMade) {
    const SettingsMutexes mutexes(loaded.load(NETWORKS));
    statusPrints(AT_HOME);
    int strings = 0;
    java.atEveryString([&] {
        ++strings;
        EXPECT_TRUE(mutexes.pairIsHeld());
    });
    EXPECT_EQ(text("getCurrentNetwork0"), "home");
    EXPECT_EQ(strings, 1);
}

} // namespace
