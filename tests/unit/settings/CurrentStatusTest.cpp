// The supplicant's state, and what the same status says of the current network.

#include "LoadedSettings.h"
#include "RecordedLocks.h"

using testing::IsEmpty;

namespace {

class CurrentStatus : public test::SettingsTest {
protected:
    CurrentStatus() { load(test::LoadedHost::linesOf({"home", "work"})); }

    /// The result, which is also what is kept.
    static unsigned int ask(const char* adapter = "wlan0") {
        const unsigned int result = settings().getCurrentStatus(adapter);
        EXPECT_EQ(result, state());
        return result;
    }

    unsigned int askWith(const std::string& status) {
        standIn.reset();
        standIn.on({"-iwlan0", "status"}).prints(status);
        return ask();
    }

    static void atHome(unsigned int status) {
        setCurrent("home");
        setStatus("home", status);
    }
};

TEST_F(CurrentStatus, IsUnknownAndStaysForNoAdapter) {
    setState("COMPLETED");
    setCurrent("home");
    EXPECT_EQ(settings().getCurrentStatus(nullptr), WPA_STATE_UNKNOWN);
    EXPECT_EQ(state(), WPA_STATE_COMPLETED);
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_THAT(commands(), IsEmpty());
}

// LOAD-3
TEST_F(CurrentStatus, IsThatOfTheFirstAdapterWhicheverIsNamed) {
    standIn.on({"-iwlan0", "status"}).prints("wpa_state=SCANNING\n");
    for (const char* const adapter : {"wlan0", "wlan1", "", "fourteen-chars"})
        EXPECT_EQ(ask(adapter), WPA_STATE_SCANNING) << adapter;
    EXPECT_THAT(commands(), testing::Each("-iwlan0 status"));
}

TEST_F(CurrentStatus, IsTheFirstStateThatTheLineHolds) {
    struct Row {
        const char* line;
        WpaState state;
    };
    const Row rows[] = {
        {"wpa_state=INACTIVE", WPA_STATE_IDLE},
        {"wpa_state=SCANNING", WPA_STATE_SCANNING},
        {"wpa_state=COMPLETED", WPA_STATE_COMPLETED},
        {"wpa_state=4WAY_HANDSHAKE", WPA_STATE_4WAY_HANDSHAKE},
        {"wpa_state=GROUP_HANDSHAKE", WPA_STATE_GROUP_HANDSHAKE},
        {"wpa_state=ASSOCIATING", WPA_STATE_ASSOCIATING},
        {"wpa_state=ASSOCIATED", WPA_STATE_ASSOCIATED},
        {"wpa_state=DISCONNECTED", WPA_STATE_DISCONNECTED},
        {"wpa_state=INTERFACE_DISABLED", WPA_STATE_UNKNOWN},
        {"wpa_state=", WPA_STATE_UNKNOWN},
        {"wpa_state=completed", WPA_STATE_UNKNOWN},
        {"x wpa_state=COMPLETED", WPA_STATE_COMPLETED},
        {"COMPLETED wpa_state=", WPA_STATE_COMPLETED},
        {"wpa_state=DISCONNECTED ASSOCIATED ASSOCIATING GROUP_HANDSHAKE",
         WPA_STATE_GROUP_HANDSHAKE},
        {"wpa_state=COMPLETED SCANNING INACTIVE", WPA_STATE_IDLE},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        setState(row.state == WPA_STATE_UNKNOWN ? "COMPLETED" : "ODD");
        EXPECT_EQ(askWith(std::string(row.line) + "\n"), row.state);
    }
}

TEST_F(CurrentStatus, StaysWithoutALineOfIt) {
    setState("ASSOCIATED");
    setCurrent("home");
    for (const char* const status : {"", "FAIL\n", "state=COMPLETED\nwpa_state\n"})
        EXPECT_EQ(askWith(status), WPA_STATE_ASSOCIATED) << status;
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTING);
}

TEST_F(CurrentStatus, IsLookedForInTheFirst16Lines) {
    std::string status;
    for (int i = 0; i < 15; ++i)
        status += "line=" + std::to_string(i) + "\n";
    EXPECT_EQ(askWith(status + "one more\nwpa_state=COMPLETED\n"), WPA_STATE_IDLE);
    EXPECT_EQ(askWith(status + "wpa_state=COMPLETED\n"), WPA_STATE_COMPLETED);
}

// STATUS-12
TEST_F(CurrentStatus, SetsTheStatusOfTheCurrentNetwork) {
    struct Row {
        const char* state;
        unsigned int before;
        unsigned int after;
        const char* current;
    };
    const Row rows[] = {
        {"ODD", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_ENABLED, "none"},
        {"ODD", NETWORK_STATUS_DISABLED, NETWORK_STATUS_DISABLED, "none"},
        {"DISCONNECTED", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_ENABLED, "none"},
        {"DISCONNECTED", NETWORK_STATUS_DISABLED, NETWORK_STATUS_DISABLED, "none"},
        {"INACTIVE", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_ENABLED, "none"},
        {"SCANNING", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_CONNECTING, "home"},
        {"ASSOCIATING", NETWORK_STATUS_ENABLED, NETWORK_STATUS_CONNECTING, "home"},
        {"ASSOCIATED", NETWORK_STATUS_DISABLED, NETWORK_STATUS_CONNECTING, "home"},
        {"4WAY_HANDSHAKE", NETWORK_STATUS_ENABLED, NETWORK_STATUS_CONNECTING, "home"},
        {"GROUP_HANDSHAKE", NETWORK_STATUS_ENABLED, NETWORK_STATUS_CONNECTING, "home"},
        {"COMPLETED", NETWORK_STATUS_CONNECTING, NETWORK_STATUS_CONNECTED, "home"},
        {"COMPLETED", NETWORK_STATUS_DISABLED, NETWORK_STATUS_CONNECTED, "home"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.state);
        atHome(row.before);
        askWith(std::string("wpa_state=") + row.state + "\n");
        EXPECT_EQ(statusOf("home"), row.after);
        EXPECT_EQ(current(), row.current);
    }
}

// Unlike getCurrentNetwork(), it enables the previous network even if that was disabled.
// STATUS-11
TEST_F(CurrentStatus, FollowsTheSsidAndEnablesThePreviousNetwork) {
    for (const unsigned int before : {NETWORK_STATUS_CONNECTED, NETWORK_STATUS_DISABLED}) {
        atHome(before);
        EXPECT_EQ(askWith("ssid=work\nwpa_state=COMPLETED\n"), WPA_STATE_COMPLETED);
        EXPECT_EQ(current(), "work");
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    }
    askWith("ssid=elsewhere\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
}

TEST_F(CurrentStatus, KeepsTheCurrentNetworkThatItNames) {
    const WifiNetwork* const home = network("home");
    setCurrent("home");
    network("work")->setSsid("home");
    askWith("wpa_state=COMPLETED\nssid=home\n");
    EXPECT_EQ(currentNetwork(), home) << "not the other one with this SSID";
}

// Unlike a load, which ignores it.
// STATUS-9
TEST_F(CurrentStatus, TakesABssidForAnSsid) {
    atHome(NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(askWith("bssid=02:00:00:00:01:00\nwpa_state=COMPLETED\n"), WPA_STATE_COMPLETED);
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    network("work")->setSsid("02:00:00:00:01:00");
    askWith("bssid=02:00:00:00:01:00\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "02:00:00:00:01:00");
}

// STATUS-9
TEST_F(CurrentStatus, FindsTheNetworkAgainBehindABssid) {
    atHome(NETWORK_STATUS_CONNECTED);
    askWith("bssid=02:00:00:00:01:00\nssid=home\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
    // Without a state behind it, the change in between shows.
    setState("INACTIVE");
    atHome(NETWORK_STATUS_DISABLED);
    askWith("bssid=02:00:00:00:01:00\nssid=home\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED) << "cleared, and then found";
}

// A line with both keys is one of the state. A load reads both the other way.
TEST_F(CurrentStatus, TakesALineOfTheStateForNothingElse) {
    setCurrent("home");
    EXPECT_EQ(askWith("ssid=work wpa_state=COMPLETED\n"), WPA_STATE_COMPLETED);
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(askWith("key_mgmt=wpa_state=SCANNING\n"), WPA_STATE_SCANNING);
    EXPECT_EQ(askWith("x ssid=\n"), WPA_STATE_SCANNING) << "anywhere in the line";
    EXPECT_EQ(current(), "none");
}

TEST_F(CurrentStatus, LetsTheLastLineOfAKindCount) {
    EXPECT_EQ(askWith("wpa_state=COMPLETED\nssid=home\nssid=work\nwpa_state=SCANNING\n"),
              WPA_STATE_SCANNING);
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(CurrentStatus, HasTheSsidBehindTheFirstEqualsSign) {
    network("work")->setSsid("a=b");
    askWith("ssid=a=b\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "a=b");
    network("home")->setSsid("1 ssid=c");
    askWith("x=1 ssid=c\n");
    EXPECT_EQ(current(), "1 ssid=c");
}

TEST_F(CurrentStatus, IsUnknownWithoutAnAnswer) {
    standIn.on({"*"}).prints("wpa_state=COMPLETED\n").exits(255);
    for (const unsigned int before : {NETWORK_STATUS_CONNECTED, NETWORK_STATUS_DISABLED}) {
        setState("COMPLETED");
        atHome(before);
        EXPECT_EQ(ask(), WPA_STATE_UNKNOWN);
        EXPECT_EQ(current(), "none");
        const bool wasDisabled = before == NETWORK_STATUS_DISABLED;
        EXPECT_EQ(statusOf("home"), wasDisabled ? before : NETWORK_STATUS_ENABLED);
    }
}

TEST_F(CurrentStatus, IsUnknownAfterALoadThatFailed) {
    fail();
    EXPECT_EQ(askWith("wpa_state=COMPLETED\n"), WPA_STATE_UNKNOWN);
    EXPECT_THAT(commands(), IsEmpty()) << "there is no adapter to ask";
}

// The caller holds the other locks.
TEST_F(CurrentStatus, IsSetUnderTheLockOfTheStateAlone) {
    const test::SettingsMutexes locks(settings());
    standIn.on({"-iwlan0", "status"}).prints("bssid=x\nid=0\nssid=home\nwpa_state=COMPLETED\n");
    test::LockEvents expected;
    for (int change = 0; change < 4; ++change) // both SSIDs, the state, and the end
        expected.insert(expected.end(), {{true, locks.all[1]}, {false, locks.all[1]}});
    EXPECT_EQ(locks.among(test::eventsOf([] { settings().getCurrentStatus("wlan0"); })), expected);
    EXPECT_THAT(test::eventsOf([] { settings().getCurrentStatus(nullptr); }), IsEmpty());
}

} // namespace
