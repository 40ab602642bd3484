// The status of networks and the current network after a load.

#include "LoadedSettings.h"

namespace {

const std::string CURRENT_HOME = "0\thome\tany\t[CURRENT]\n";
const std::string CURRENT_HOME_AND_WORK = CURRENT_HOME + "1\twork\tany\t\n";

class LoadStatus : public test::SettingsTest {};

// LOAD-22
TEST_F(LoadStatus, SetsTheCurrentNetworkByTheState) {
    struct Row {
        const char* state;
        WpaState number;
        unsigned int status;
        const char* current;
    };
    const Row rows[] = {
        {"ODD", WPA_STATE_UNKNOWN, NETWORK_STATUS_ENABLED, "none"},
        {"DISCONNECTED", WPA_STATE_DISCONNECTED, NETWORK_STATUS_ENABLED, "none"},
        {"INACTIVE", WPA_STATE_IDLE, NETWORK_STATUS_ENABLED, "none"},
        {"SCANNING", WPA_STATE_SCANNING, NETWORK_STATUS_CONNECTING, "home"},
        {"ASSOCIATING", WPA_STATE_ASSOCIATING, NETWORK_STATUS_CONNECTING, "home"},
        {"ASSOCIATED", WPA_STATE_ASSOCIATED, NETWORK_STATUS_CONNECTING, "home"},
        {"4WAY_HANDSHAKE", WPA_STATE_4WAY_HANDSHAKE, NETWORK_STATUS_CONNECTING, "home"},
        {"GROUP_HANDSHAKE", WPA_STATE_GROUP_HANDSHAKE, NETWORK_STATUS_CONNECTING, "home"},
        {"COMPLETED", WPA_STATE_COMPLETED, NETWORK_STATUS_CONNECTED, "home"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.state);
        load(CURRENT_HOME, std::string("wpa_state=") + row.state + "\n");
        EXPECT_EQ(state(), row.number);
        EXPECT_EQ(current(), row.current);
        EXPECT_EQ(statusOf("home"), row.status);
    }
}

// A network can be disabled by its value and current by the list.
// LOAD-11
TEST_F(LoadStatus, KeepsADisabledNetworkDisabledUnlessTheSupplicantIsOnIt) {
    struct Row {
        const char* state;
        unsigned int status;
        const char* current;
    };
    const Row rows[] = {
        {"DISCONNECTED", NETWORK_STATUS_DISABLED, "none"},
        {"SCANNING", NETWORK_STATUS_CONNECTING, "home"},
        {"COMPLETED", NETWORK_STATUS_CONNECTED, "home"},
    };
    value("0", "disabled", "1");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.state);
        load(CURRENT_HOME, std::string("wpa_state=") + row.state + "\n");
        EXPECT_EQ(statusOf("home"), row.status);
        EXPECT_EQ(current(), row.current);
    }
}

TEST_F(LoadStatus, HasNoCurrentNetworkWithoutAState) {
    load(CURRENT_HOME, "");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(LoadStatus, FollowsTheSsid) {
    load(CURRENT_HOME_AND_WORK,
         "bssid=02:00:00:00:01:00\nfreq=2412\nssid=work\nid=1\nmode=station\n"
         "pairwise_cipher=CCMP\ngroup_cipher=CCMP\nkey_mgmt=WPA2-PSK\n"
         "wpa_state=COMPLETED\nip_address=10.0.0.1\naddress=02:00:00:00:00:00\n");
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(LoadStatus, KeepsTheCurrentNetworkThatItNames) {
    load(CURRENT_HOME, "ssid=home\nwpa_state=ASSOCIATED\n");
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTING);
}

TEST_F(LoadStatus, KeepsADisabledNetworkDisabledThatItNames) {
    value("0", "disabled", "1");
    load(CURRENT_HOME, "ssid=home\nwpa_state=DISCONNECTED\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
}

TEST_F(LoadStatus, HasNoCurrentNetworkWhenItNamesAnUnknownOne) {
    for (const std::string ssid : {"elsewhere", "", "Home"}) {
        load(CURRENT_HOME, "ssid=" + ssid + "\nwpa_state=COMPLETED\n");
        EXPECT_EQ(current(), "none") << ssid;
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    }
}

TEST_F(LoadStatus, LetsTheLastSsidAndTheLastStateCount) {
    load(CURRENT_HOME_AND_WORK, "wpa_state=COMPLETED\nssid=home\nssid=work\nwpa_state=SCANNING\n");
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

// The supplicant has it disabled; memory shows it as enabled.
// STATUS-11
TEST_F(LoadStatus, EnablesThePreviousNetworkEvenIfItWasDisabled) {
    value("0", "disabled", "1");
    load(CURRENT_HOME_AND_WORK + "2\toff\tany\t[DISABLED]\n", "ssid=work\nwpa_state=COMPLETED\n");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf("off"), NETWORK_STATUS_DISABLED) << "it was not the current one";
}

// STATUS-9
TEST_F(LoadStatus, IgnoresBssidsAndOtherLinesThatContainAKey) {
    load(CURRENT_HOME, "bssid=work\nkey_mgmt=wpa_state=INACTIVE\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
}

TEST_F(LoadStatus, TakesTheTextBehindTheFirstEqualsSign) {
    load("0\ta=b\tany\t\n", "ssid=a=b\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "a=b");
}

// LOAD-1
TEST_F(LoadStatus, TakesTheFirst16Lines) {
    std::string status;
    for (int i = 0; i < 15; ++i)
        status += "line=" + std::to_string(i) + "\n";
    load(CURRENT_HOME, status + "wpa_state=COMPLETED\n");
    EXPECT_EQ(state(), WPA_STATE_COMPLETED);
    load(CURRENT_HOME, status + "one more\nwpa_state=COMPLETED\n");
    EXPECT_EQ(state(), WPA_STATE_UNKNOWN);
}

TEST_F(LoadStatus, TakesTheLastNetworkWithTheFlagForCurrent) {
    load("0\ta\tany\t[CURRENT]\n1\tb\tany\t[CURRENT]\n2\tc\tany\t[CURRENT][DISABLED]\n",
         "wpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "b");
    EXPECT_EQ(statusOf("a"), NETWORK_STATUS_CONNECTING) << "as the list says";
    EXPECT_EQ(statusOf("c"), NETWORK_STATUS_DISABLED);
}

// LOAD-12
TEST_F(LoadStatus, TakesATemporarilyDisabledNetworkForAnEnabledOne) {
    load("0\thome\tany\t[TEMP-DISABLED]\n", "wpa_state=SCANNING\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

} // namespace
