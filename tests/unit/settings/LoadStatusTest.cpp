#include "LoadFixture.h"

namespace {

const std::string HOME = "0\thome\tany\t[CURRENT]\n";
const std::string LIST = HOME + "1\twork\tany\t\n";

class LoadStatus : public test::LoadFixture {};

// LOAD-22
TEST_F(LoadStatus, SettlesTheCurrentNetworkByTheState) {
    struct Row {
        const char* state;
        WpaState number;
        int status;
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
        const auto& settings = load(HOME, std::string("wpa_state=") + row.state + "\n");
        EXPECT_EQ(test::supplicantStateOf(settings), row.number);
        EXPECT_EQ(current(), row.current);
        EXPECT_EQ(statusOf("home"), row.status);
    }
}

// A network can be disabled by its value and current by the list.
// LOAD-11
TEST_F(LoadStatus, KeepsADisabledNetworkDisabledUnlessTheSupplicantIsOnIt) {
    struct Row {
        const char* state;
        int status;
        const char* current;
    };
    const Row rows[] = {
        {"DISCONNECTED", NETWORK_STATUS_DISABLED, "none"},
        {"SCANNING", NETWORK_STATUS_CONNECTING, "home"},
        {"COMPLETED", NETWORK_STATUS_CONNECTED, "home"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.state);
        value("0", "disabled", "1");
        load(HOME, std::string("wpa_state=") + row.state + "\n");
        EXPECT_EQ(statusOf("home"), row.status);
        EXPECT_EQ(current(), row.current);
    }
}

TEST_F(LoadStatus, HasNoCurrentNetworkWithoutAReport) {
    load(HOME, "");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(LoadStatus, FollowsTheSsidOfTheReport) {
    load(LIST, "bssid=02:00:00:00:01:00\nfreq=2412\nssid=work\nid=1\nmode=station\n"
               "pairwise_cipher=CCMP\ngroup_cipher=CCMP\nkey_mgmt=WPA2-PSK\n"
               "wpa_state=COMPLETED\nip_address=10.0.0.1\naddress=02:00:00:00:00:00\n");
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(LoadStatus, KeepsTheCurrentNetworkThatTheReportNames) {
    load(HOME, "ssid=home\nwpa_state=ASSOCIATED\n");
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTING);
}

TEST_F(LoadStatus, KeepsADisabledNetworkDisabledThatTheReportNames) {
    value("0", "disabled", "1");
    load(HOME, "ssid=home\nwpa_state=DISCONNECTED\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
}

TEST_F(LoadStatus, HasNoCurrentNetworkWhenTheReportNamesAnUnknownOne) {
    load(HOME, "ssid=elsewhere\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    load(HOME, "ssid=\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "none");
    load(HOME, "ssid=Home\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "none") << "byte for byte";
}

TEST_F(LoadStatus, LetsTheLastSsidAndTheLastStateCount) {
    load(LIST, "wpa_state=COMPLETED\nssid=home\nssid=work\nwpa_state=SCANNING\n");
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

// Known to the supplicant as disabled, yet left as one that it may choose.
// STATUS-11
TEST_F(LoadStatus, EnablesTheNetworkThatIsLeftEvenIfItWasDisabled) {
    value("0", "disabled", "1");
    load(LIST + "2\toff\tany\t[DISABLED]\n", "ssid=work\nwpa_state=COMPLETED\n");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf("off"), NETWORK_STATUS_DISABLED) << "it was not the current one";
}

// STATUS-9
TEST_F(LoadStatus, PassesOverAccessPointsAndOtherLinesThatHoldAKey) {
    load(HOME, "bssid=work\nkey_mgmt=wpa_state=INACTIVE\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
}

TEST_F(LoadStatus, TakesTheTextBehindTheFirstEqualsSign) {
    load("0\ta=b\tany\t\n", "ssid=a=b\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "a=b");
}

// LOAD-1
TEST_F(LoadStatus, TakesTheFirst16Lines) {
    std::string report;
    for (int i = 0; i < 15; ++i)
        report += "line=" + std::to_string(i) + "\n";
    EXPECT_EQ(test::supplicantStateOf(load(HOME, report + "wpa_state=COMPLETED\n")),
              WPA_STATE_COMPLETED);
    EXPECT_EQ(test::supplicantStateOf(load(HOME, report + "one more\nwpa_state=COMPLETED\n")),
              WPA_STATE_UNKNOWN);
}

TEST_F(LoadStatus, LetsTheLastNetworkThatIsMarkedBeCurrent) {
    load("0\ta\tany\t[CURRENT]\n1\tb\tany\t[CURRENT]\n2\tc\tany\t[CURRENT][DISABLED]\n",
         "wpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "b");
    EXPECT_EQ(statusOf("a"), NETWORK_STATUS_CONNECTING) << "as the list says";
    EXPECT_EQ(statusOf("c"), NETWORK_STATUS_DISABLED);
}

// LOAD-12
TEST_F(LoadStatus, TakesANetworkThatIsDisabledForAWhileForAnEnabledOne) {
    load("0\thome\tany\t[TEMP-DISABLED]\n", "wpa_state=SCANNING\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

} // namespace
