// Natives that ask what the supplicant is doing, and the WEP keys.

#include "FieldNatives.h"

#include "support/TestTime.h"
#include "unit/settings/RecordedLocks.h"

#include <gmock/gmock.h>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

extern "C" {
jint NATIVE(getDaemonStatus0)(JNIEnv*, jclass, jstring);
jstring NATIVE(getCurrentNetwork0)(JNIEnv*, jclass, jstring);
jint NATIVE(getNetworkStatus0)(JNIEnv*, jclass, jstring, jstring);
jobjectArray NATIVE(getWepKeys0)(JNIEnv*, jclass, jstring, jstring);
}

namespace {

class StatusNatives : public testing::Test {
protected:
    ~StatusNatives() override {
        EXPECT_EQ(java.heldCharacters(), 0U);
        EXPECT_FALSE(java.pendingException());
    }

    jstring text(const char* characters) {
        return characters ? java.javaString(characters) : nullptr;
    }

    jint daemonStatus(const char* iface = "wlan0") {
        return NATIVE(getDaemonStatus0)(java.environment(), nullptr, text(iface));
    }

    std::string current(const char* iface = "wlan0") {
        const jstring ssid = NATIVE(getCurrentNetwork0)(java.environment(), nullptr, text(iface));
        return ssid ? java.textOf(ssid) : "null";
    }

    jint status(const char* ssid, const char* iface = "wlan0") {
        return NATIVE(getNetworkStatus0)(java.environment(), nullptr, text(iface), text(ssid));
    }

    StandIn::Answer statusPrints(const std::string& reply) {
        auto answer = loaded.standIn.on({"-iwlan0", "status"});
        answer.prints(reply);
        return answer;
    }

    TestTime time{[](TestTime& t) { t.clockIs(1000000); }};
    FakeJni java;
    LoadedSettings loaded;
};

const std::string NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n";

TEST_F(StatusNatives, TellTheStateOfTheSupplicant) {
    loaded.load(NETWORKS);
    statusPrints("ssid=home\nwpa_state=COMPLETED\n")
        .then()
        .prints("wpa_state=4WAY_HANDSHAKE\n")
        .then()
        .exits(255);
    EXPECT_EQ(daemonStatus(), 8);
    EXPECT_EQ(daemonStatus("whichever"), 6);
    EXPECT_EQ(daemonStatus(nullptr), 0);
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 status", "-iwlan0 status"));
    EXPECT_EQ(daemonStatus(), 0);
}

TEST_F(StatusNatives, TellZeroWithoutNetworks) {
    loaded.fail();
    EXPECT_EQ(daemonStatus(), 0);
    EXPECT_EQ(current(), "null");
    EXPECT_EQ(status("home"), 0);
}

TEST_F(StatusNatives, TellTheCurrentNetwork) {
    loaded.load(NETWORKS);
    statusPrints("bssid=x\nssid=work\nwpa_state=COMPLETED\n").then().prints("ssid=none of them\n");
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(current(nullptr), "null");
    EXPECT_EQ(loaded.commands().size(), 1U);
    EXPECT_EQ(current(), "null") << "not configured";
    EXPECT_EQ(current("fourteen-chars"), "null");
}

TEST_F(StatusNatives, TellTheCurrentNetworkInAnyScript) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    settings.getNetwork("wlan0", "home")->setSsid("caf\xe9 \xf0\x9f\x98\x80");
    statusPrints("ssid=caf\xe9 \xf0\x9f\x98\x80\n");
    EXPECT_EQ(current(), "caf\xed\xb3\xa9 \xed\xa0\xbd\xed\xb8\x80");
}

TEST_F(StatusNatives, TellNullWhereTheCurrentNetworkHasNoSsid) {
    WifiHostSettings& settings = loaded.load(NETWORKS, "ssid=home\nwpa_state=COMPLETED\n");
    settings.getNetwork("wlan0", "home")->setSsid(nullptr);
    statusPrints("wpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "null");
}

TEST_F(StatusNatives, BringTheStatusOfANetworkUpToDateFirst) {
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

TEST_F(StatusNatives, BringTheStatusUpToDateAlsoForANetworkThatIsNotThere) {
    loaded.load(NETWORKS);
    loaded.answer("FAIL\n", 255);
    time.advance(std::chrono::seconds(5));
    EXPECT_EQ(status("other"), 0);
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 list_networks"));
    EXPECT_EQ(status(nullptr), 0);
    EXPECT_EQ(status("", nullptr), 0);
    EXPECT_EQ(status("home", nullptr), 1) << "the adapter plays no part";
}

TEST_F(StatusNatives, HoldTheLock) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    const SettingsMutexes mutexes(settings);
    const std::function<void()> asks[] = {
        [this] { status("home"); }, [this] { daemonStatus(nullptr); }, [this] { current(nullptr); },
        [this] {
            NATIVE(getWepKeys0)
            (java.environment(), nullptr, text("wlan0"), text("home"));
        }};
    for (const auto& ask : asks) {
        const LockEvents events = eventsOf(ask);
        ASSERT_GE(events.size(), 6U);
        EXPECT_EQ(LockEvents(events.begin(), events.begin() + 3), mutexes.taking());
        EXPECT_EQ(LockEvents(events.end() - 3, events.end()), mutexes.givingBack());
        for (PlatformMutex* const mutex : mutexes.all)
            EXPECT_TRUE(isFree(mutex));
    }
}

// Both refresh the status, which is due.
// STATUS-3
TEST_F(StatusNatives, HoldTheLockAlsoWhileTheyAskTheSupplicant) {
    const SettingsMutexes mutexes(loaded.load(NETWORKS));
    statusPrints("ssid=home\nwpa_state=COMPLETED\n");
    loaded.standIn.on({"-iwlan0", "list_networks"}).prints("header\n0\thome\tany\t[CURRENT]\n");
    const std::function<void()> asks[] = {[this] { status("home"); }, [this] { daemonStatus(); },
                                          [this] { current(); }};
    for (const auto& ask : asks) {
        const std::size_t commands = loaded.commands().size();
        time.advance(std::chrono::seconds(5));
        EXPECT_TRUE(mutexes.pairIsHeldThroughout(eventsOf(ask)));
        EXPECT_GT(loaded.commands().size(), commands);
    }
}

// Another thread could free the SSID once the locks are given back.
// STATUS-3
TEST_F(StatusNatives, HoldTheLockWhileTheStringOfTheCurrentNetworkIsMade) {
    const SettingsMutexes mutexes(loaded.load(NETWORKS));
    statusPrints("ssid=home\nwpa_state=COMPLETED\n");
    int strings = 0;
    java.atEveryString([&] {
        ++strings;
        EXPECT_TRUE(mutexes.pairIsHeld());
    });
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(strings, 1);
}

// WEP keys.

class WepKeys : public testing::Test {
protected:
    FakeJni::Elements keys(const char* ssid = "home") {
        return world.java.elementsOf(world.call(NATIVE(getWepKeys0), ssid));
    }

    OneNetwork world;
};

// TEXT-2
TEST_F(WepKeys, ComeInPlainByTheirSlots) {
    world.network().setWepKey(1, "second");
    world.network().setWepKey(3, "caf\xe9");
    EXPECT_THAT(keys(), ElementsAre("", "second", "", "caf\xed\xb3\xa9"));
    for (unsigned int slot = 0; slot < 4; ++slot)
        world.network().setWepKey(slot, std::to_string(slot).c_str());
    EXPECT_THAT(keys(), ElementsAre("0", "1", "2", "3"));
}

TEST_F(WepKeys, AreFourEmptyTextsWithoutTheNetwork) {
    world.network().setWepKey(0, "key");
    for (const char* const ssid : {"other", "", static_cast<const char*>(nullptr)})
        EXPECT_THAT(keys(ssid), ElementsAre("", "", "", ""));
    world.loseNetworks();
    EXPECT_THAT(keys(), ElementsAre("", "", "", ""));
}

TEST_F(WepKeys, AreNullWhereTheVirtualMachineHasNoMemory) {
    world.network().setWepKey(0, "key");
    for (int successes = 0; successes < 2; ++successes) {
        world.java.failCall(FakeJni::Call::NewStringUTF, successes);
        EXPECT_EQ(world.call(NATIVE(getWepKeys0), "home"), nullptr);
        EXPECT_TRUE(world.java.pendingException());
        world.java.catchException();
    }
}

TEST_F(WepKeys, AreMadeBeforeTheSettingsAreAskedFor) {
    WifiHostSettings::unload();
    world.java.failCall(FakeJni::Call::NewObjectArray);
    EXPECT_EQ(world.call(NATIVE(getWepKeys0), "home"), nullptr);
    world.java.catchException();
    EXPECT_THAT(world.commands(), IsEmpty()) << "nothing was loaded";
    world.loseNetworks();
}

} // namespace
