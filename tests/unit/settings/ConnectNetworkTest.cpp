#include "LoadedSettings.h"

using test::Commands;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n5\tcafe\tany\t[DISABLED]\n";
const std::string AT_HOME = "ssid=home\nwpa_state=COMPLETED\n";

const std::string UNKNOWN_SSIDS[] = {
    "", "h", "Home", std::string(32, 'h'), std::string(200, 'h'), "\xff"};
const char* const BAD_INTERFACES[] = {nullptr, "", "fourteen-chars"};

class ConnectNetwork : public test::SettingsTest {
protected:
    /// On "home", which is connected. The client accepts every command.
    ConnectNetwork() { loadAtHome("OK\n"); }

    void loadAtHome(const std::string& reply, int status = 0) {
        load(NETWORKS, AT_HOME);
        answer(reply, status);
    }

    static bool connect(const std::string& ssid, const char* iface = "wlan0") {
        return settings().connectNetwork(iface, ssid.c_str());
    }

    static bool disconnect(const std::string& ssid, const char* iface = "wlan0") {
        return settings().disconnectNetwork(iface, ssid.c_str());
    }

    static void expectStatuses(unsigned int home, unsigned int work, unsigned int cafe) {
        EXPECT_EQ(statusOf("home"), home);
        EXPECT_EQ(statusOf("work"), work);
        EXPECT_EQ(statusOf("cafe"), cafe);
    }
};

TEST_F(ConnectNetwork, SelectsItAndMakesItTheCurrentOne) {
    EXPECT_TRUE(connect("work"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 select 3"));
    EXPECT_EQ(current(), "work");
    expectStatuses(NETWORK_STATUS_ENABLED, NETWORK_STATUS_CONNECTING, NETWORK_STATUS_DISABLED);
    EXPECT_TRUE(connect("cafe")) << "also one that is disabled";
    EXPECT_EQ(current(), "cafe");
    expectStatuses(NETWORK_STATUS_ENABLED, NETWORK_STATUS_ENABLED, NETWORK_STATUS_CONNECTING);
}

TEST_F(ConnectNetwork, SelectsWhateverTheClientAnswers) {
    loadAtHome("FAIL\n");
    EXPECT_TRUE(connect("work", "wlan1"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan1 select 3"));
}

TEST_F(ConnectNetwork, LeavesTheOneThatWasCurrentDisabled) {
    setStatus("home", NETWORK_STATUS_DISABLED);
    EXPECT_TRUE(connect("work"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
}

// OP-5
TEST_F(ConnectNetwork, LeavesTheStatusOfTheCurrentOneAsItWas) {
    for (const unsigned int status : {NETWORK_STATUS_CONNECTED, NETWORK_STATUS_DISABLED}) {
        setStatus("home", status);
        EXPECT_TRUE(connect("home"));
        EXPECT_EQ(statusOf("home"), status);
    }
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 select 0", "-iwlan0 select 0"));
}

// The network that is found first is not the current one, but has the same SSID.
TEST_F(ConnectNetwork, KnowsTheCurrentOneByItsSsid) {
    load("0\thome\tany\t\n3\twork\tany\t\n", AT_HOME);
    answer("OK\n");
    const WifiNetwork* const home = network("home");
    WifiNetwork* const work = network("work");
    work->setSsid("home");
    ASSERT_EQ(network("home"), work);
    EXPECT_TRUE(connect("home"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 select 3"));
    EXPECT_EQ(work->getNetworkStatus(), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(home->getNetworkStatus(), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(currentNetwork(), home);
    EXPECT_TRUE(disconnect("home"));
    EXPECT_EQ(currentNetwork(), nullptr);
}

TEST_F(ConnectNetwork, FailsWithoutACommandForAnUnknownSsid) {
    for (const std::string& ssid : UNKNOWN_SSIDS)
        EXPECT_FALSE(connect(ssid)) << ssid;
    EXPECT_FALSE(settings().connectNetwork("wlan0", nullptr));
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
}

TEST_F(ConnectNetwork, ChangesNothingWhenTheClientFails) {
    loadAtHome("OK\n", 1);
    EXPECT_FALSE(connect("work"));
    for (const char* const iface : BAD_INTERFACES)
        EXPECT_FALSE(connect("work", iface));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 select 3"));
    EXPECT_EQ(current(), "home");
    expectStatuses(NETWORK_STATUS_CONNECTED, NETWORK_STATUS_ENABLED, NETWORK_STATUS_DISABLED);
}

// OP-4
TEST_F(ConnectNetwork, ReassociatesFirstInTheStateDisconnectedAlone) {
    for (const std::string state :
         {"INACTIVE", "SCANNING", "COMPLETED", "4WAY_HANDSHAKE", "ASSOCIATING", "GROUP_HANDSHAKE",
          "ASSOCIATED", "DISCONNECTED", "UNKNOWN_WORD"}) {
        load(NETWORKS, "wpa_state=" + state + "\n");
        answer("OK\n");
        EXPECT_TRUE(connect("work"));
        Commands expected{"-iwlan0 select 3"};
        if (state == "DISCONNECTED")
            expected.insert(expected.begin(), "-iwlan0 reassociate");
        EXPECT_EQ(commands(), expected) << state;
    }
}

TEST_F(ConnectNetwork, SelectsNothingWhenItCannotReassociate) {
    load(NETWORKS, "wpa_state=DISCONNECTED\n");
    answer("FAIL\n");
    EXPECT_FALSE(connect("work"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 reassociate"));
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
}

TEST_F(ConnectNetwork, FailsWithoutNetworks) {
    fail();
    EXPECT_FALSE(connect("home"));
    EXPECT_THAT(commands(), IsEmpty());
}

class DisconnectNetwork : public ConnectNetwork {};

TEST_F(DisconnectNetwork, DisconnectsAndEnablesItUnlessItIsDisabled) {
    loadAtHome("FAIL\n"); // the exit status alone decides
    EXPECT_TRUE(disconnect("home", "wlan1"));
    EXPECT_TRUE(disconnect("cafe", "wlan1"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan1 disconnect", "-iwlan1 disconnect"));
    expectStatuses(NETWORK_STATUS_ENABLED, NETWORK_STATUS_ENABLED, NETWORK_STATUS_DISABLED);
}

// OP-4
TEST_F(DisconnectNetwork, MakesTheNextConnectReassociate) {
    EXPECT_TRUE(disconnect("home"));
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(state(), WPA_STATE_DISCONNECTED);
    EXPECT_TRUE(connect("work"));
    EXPECT_THAT(commands(),
                ElementsAre("-iwlan0 disconnect", "-iwlan0 reassociate", "-iwlan0 select 3"));
}

TEST_F(DisconnectNetwork, LeavesAnotherCurrentOneCurrent) {
    EXPECT_TRUE(disconnect("work"));
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(state(), WPA_STATE_DISCONNECTED);
}

// OP-3
TEST_F(DisconnectNetwork, SucceedsWithoutACommandForAnUnknownSsid) {
    loadAtHome("OK\n", 1);
    for (const std::string& ssid : UNKNOWN_SSIDS)
        EXPECT_TRUE(disconnect(ssid)) << ssid;
    EXPECT_TRUE(settings().disconnectNetwork("wlan0", nullptr));
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(state(), WPA_STATE_COMPLETED);
}

TEST_F(DisconnectNetwork, ChangesNothingWhenTheClientFails) {
    loadAtHome("OK\n", 1);
    EXPECT_FALSE(disconnect("home"));
    for (const char* const iface : BAD_INTERFACES)
        EXPECT_FALSE(disconnect("home", iface));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 disconnect"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(state(), WPA_STATE_COMPLETED);
}

TEST_F(DisconnectNetwork, SucceedsWithoutNetworks) {
    fail();
    EXPECT_TRUE(disconnect("home"));
    EXPECT_THAT(commands(), IsEmpty());
}

} // namespace
