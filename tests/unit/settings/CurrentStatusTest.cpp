// The supplicant's state, and what its report tells of the current network on the way.

#include "StatusFixture.h"

#include "MissingWifiUtil.h"
#include "RecordedLocks.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CurrentStatus : public test::StatusFixture {
protected:
    CurrentStatus() { loadBoth(); }

    /// What is returned, which is also what is kept.
    static unsigned int ask(const char* adapter = "wlan0") {
        const unsigned int state = settings().getCurrentStatus(adapter);
        EXPECT_EQ(state, test::supplicantStateOf(settings()));
        return state;
    }

    unsigned int askWith(const std::string& report) {
        replies("", report);
        return ask();
    }
};

TEST_F(CurrentStatus, IsUnknownAndStaysForNoAdapter) {
    setState(WPA_STATE_COMPLETED);
    setCurrent("home");
    EXPECT_EQ(settings().getCurrentStatus(nullptr), WPA_STATE_UNKNOWN);
    EXPECT_EQ(test::supplicantStateOf(settings()), WPA_STATE_COMPLETED);
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
        setState(row.state == WPA_STATE_UNKNOWN ? WPA_STATE_COMPLETED : WPA_STATE_UNKNOWN);
        EXPECT_EQ(askWith(std::string(row.line) + "\n"), row.state);
    }
}

TEST_F(CurrentStatus, StaysWithoutALineOfIt) {
    setState(WPA_STATE_ASSOCIATED);
    setCurrent("home");
    for (const char* const report : {"", "FAIL\n", "state=COMPLETED\nwpa_state\n"})
        EXPECT_EQ(askWith(report), WPA_STATE_ASSOCIATED) << report;
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTING);
}

TEST_F(CurrentStatus, IsLookedForInTheFirst16Lines) {
    std::string report;
    for (int i = 0; i < 15; ++i)
        report += "line=" + std::to_string(i) + "\n";
    setState(WPA_STATE_IDLE);
    EXPECT_EQ(askWith(report + "one more\nwpa_state=COMPLETED\n"), WPA_STATE_IDLE);
    EXPECT_EQ(askWith(report + "wpa_state=COMPLETED\n"), WPA_STATE_COMPLETED);
}

// STATUS-12
TEST_F(CurrentStatus, SettlesTheCurrentNetwork) {
    struct Row {
        const char* state;
        unsigned int before;
        int after;
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
        setStatus("home", row.before);
        setCurrent("home");
        askWith(std::string("wpa_state=") + row.state + "\n");
        EXPECT_EQ(statusOf("home"), row.after);
        EXPECT_EQ(current(), row.current);
    }
}

// Unlike getCurrentNetwork(), the network that is left is enabled even if it was disabled.
// STATUS-11
TEST_F(CurrentStatus, FollowsTheSsidAndEnablesTheNetworkThatIsLeft) {
    for (const unsigned int before : {NETWORK_STATUS_CONNECTED, NETWORK_STATUS_DISABLED}) {
        setStatus("home", before);
        setCurrent("home");
        EXPECT_EQ(askWith("ssid=work\nwpa_state=COMPLETED\n"), WPA_STATE_COMPLETED);
        EXPECT_EQ(current(), "work");
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    }
    askWith("ssid=elsewhere\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
}

TEST_F(CurrentStatus, KeepsTheCurrentNetworkThatTheReportNames) {
    const WifiNetwork* const home = record("home");
    setCurrent("home");
    record("work")->setSsid("home");
    askWith("wpa_state=COMPLETED\nssid=home\n");
    EXPECT_EQ(test::currentNetworkOf(settings()), home) << "not the other one of this name";
}

// Unlike loading, which passes over it.
// STATUS-9
TEST_F(CurrentStatus, TakesABssidForAnSsid) {
    setStatus("home", NETWORK_STATUS_CONNECTED);
    setCurrent("home");
    EXPECT_EQ(askWith("bssid=02:00:00:00:01:00\nwpa_state=COMPLETED\n"), WPA_STATE_COMPLETED);
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    record("work")->setSsid("02:00:00:00:01:00");
    askWith("bssid=02:00:00:00:01:00\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "02:00:00:00:01:00");
}

// STATUS-9
TEST_F(CurrentStatus, FindsTheNetworkAgainBehindABssid) {
    setStatus("home", NETWORK_STATUS_CONNECTED);
    setCurrent("home");
    askWith("bssid=02:00:00:00:01:00\nssid=home\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
    // What happened in between shows where nothing follows that hides it.
    setState(WPA_STATE_IDLE);
    setStatus("home", NETWORK_STATUS_DISABLED);
    askWith("bssid=02:00:00:00:01:00\nssid=home\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED) << "it was left, and then found";
}

// A line is of the state first, and other keys in it do not matter: loading sees both the other way.
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
    record("work")->setSsid("a=b");
    askWith("ssid=a=b\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "a=b");
    record("home")->setSsid("1 ssid=c");
    askWith("x=1 ssid=c\n");
    EXPECT_EQ(current(), "1 ssid=c");
}

TEST_F(CurrentStatus, IsUnknownWhenTheSupplicantDoesNotAnswer) {
    standIn.on({"*"}).prints("wpa_state=COMPLETED\n").exits(255);
    setState(WPA_STATE_COMPLETED);
    setStatus("home", NETWORK_STATUS_CONNECTED);
    setCurrent("home");
    EXPECT_EQ(ask(), WPA_STATE_UNKNOWN);
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    setStatus("home", NETWORK_STATUS_DISABLED);
    setCurrent("home");
    EXPECT_EQ(ask(), WPA_STATE_UNKNOWN);
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
}

TEST_F(CurrentStatus, IsUnknownWithoutWifiUtil) {
    const test::MissingWifiUtil missing;
    setState(WPA_STATE_COMPLETED);
    setStatus("home", NETWORK_STATUS_CONNECTED);
    setCurrent("home");
    EXPECT_EQ(ask(), WPA_STATE_UNKNOWN);
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(CurrentStatus, IsUnknownOfAnInstanceThatCouldNotBeLoaded) {
    standIn.on({"*"}).exits(255);
    load();
    EXPECT_EQ(askWith("wpa_state=COMPLETED\n"), WPA_STATE_UNKNOWN);
    EXPECT_THAT(commands(), IsEmpty()) << "there is no adapter to ask";
}

// Its caller holds the others.
TEST_F(CurrentStatus, IsSetUnderTheLockOfTheStateAlone) {
    const test::SettingsMutexes locks(settings());
    const auto events = locks.among(
        test::eventsOf([&] { askWith("bssid=x\nid=0\nssid=home\nwpa_state=COMPLETED\n"); }));
    test::LockEvents expected;
    for (int change = 0; change < 4; ++change) // both names, the state, and the end
        expected.insert(expected.end(), {{true, locks.all[2]}, {false, locks.all[2]}});
    EXPECT_EQ(events, expected);
    EXPECT_THAT(test::eventsOf([&] { settings().getCurrentStatus(nullptr); }), IsEmpty());
}

} // namespace
