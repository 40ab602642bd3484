#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "SettingsState.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using platwifi::SettingsLock;
using test::Commands;
using test::statusOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n5\tcafe\tany\t[DISABLED]\n";
const std::string AT_HOME = "ssid=home\nwpa_state=COMPLETED\n";
const std::string DISCONNECTED = "wpa_state=DISCONNECTED\n";

class ConnectNetwork : public testing::Test {
protected:
    void setStatus(WifiHostSettings& settings, const char* ssid, unsigned int status) {
        const SettingsLock lock(settings);
        settings.getNetwork("wlan0", ssid)->setNetworkStatus(status);
    }

    test::LoadedSettings loaded;
};

TEST_F(ConnectNetwork, SelectsItAndMakesItTheCurrentOne) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 3"));
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf(settings, "cafe"), NETWORK_STATUS_DISABLED);
}

TEST_F(ConnectNetwork, SelectsWhateverTheClientAnswers) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("FAIL\n");
    EXPECT_TRUE(settings.connectNetwork("wlan1", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan1 select 3"));
}

TEST_F(ConnectNetwork, MakesOneAfterTheOtherTheCurrentOne) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("OK\n");
    for (const char* const ssid : {"work", "home", "cafe"})
        EXPECT_TRUE(settings.connectNetwork("wlan0", ssid));
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf(settings, "cafe"), NETWORK_STATUS_CONNECTING);
}

TEST_F(ConnectNetwork, EnablesTheOneThatWasCurrent) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTED);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_CONNECTING);
}

TEST_F(ConnectNetwork, LeavesTheOneThatWasCurrentDisabled) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    setStatus(settings, "home", NETWORK_STATUS_DISABLED);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_DISABLED);
}

// OP-5
TEST_F(ConnectNetwork, LeavesTheStatusOfTheCurrentOneAsItWas) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "home"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 0"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTED);
    setStatus(settings, "home", NETWORK_STATUS_DISABLED);
    EXPECT_TRUE(settings.connectNetwork("wlan0", "home"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_DISABLED);
}

// The record that is found first is not the current one; it bears the same SSID all the same.
TEST_F(ConnectNetwork, KnowsTheCurrentOneByItsSsid) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n3\twork\tany\t\n", AT_HOME);
    const WifiNetwork* const home = settings.getNetwork("wlan0", "home");
    WifiNetwork* const work = settings.getNetwork("wlan0", "work");
    work->setSsid("home");
    ASSERT_EQ(settings.getNetwork("wlan0", "home"), work);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "home"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 3"));
    EXPECT_EQ(work->getNetworkStatus(), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(home->getNetworkStatus(), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(test::currentNetworkOf(settings), home);
    EXPECT_TRUE(settings.disconnectNetwork("wlan0", "home"));
    EXPECT_EQ(test::currentNetworkOf(settings), nullptr);
}

TEST_F(ConnectNetwork, ConnectsOneThatIsDisabled) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "cafe"));
    EXPECT_EQ(statusOf(settings, "cafe"), NETWORK_STATUS_CONNECTING);
}

TEST_F(ConnectNetwork, FailsWithoutACommandWhenThereIsNoneLikeIt) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n");
    const std::string ssids[] = {"",    "h", "Home", std::string(32, 'h'), std::string(200, 'h'),
                                 "\xff"};
    for (const std::string& ssid : ssids)
        EXPECT_FALSE(settings.connectNetwork("wlan0", ssid.c_str())) << ssid;
    EXPECT_FALSE(settings.connectNetwork("wlan0", nullptr));
    EXPECT_THAT(loaded.commands(), IsEmpty());
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTED);
}

TEST_F(ConnectNetwork, ChangesNothingWhenTheClientFails) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n", 1);
    EXPECT_FALSE(settings.connectNetwork("wlan0", "work"));
    EXPECT_FALSE(settings.connectNetwork("fourteen-chars", "work"));
    EXPECT_FALSE(settings.connectNetwork("", "work"));
    EXPECT_FALSE(settings.connectNetwork(nullptr, "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 3"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_ENABLED);
}

// OP-4
TEST_F(ConnectNetwork, ReassociatesFirstWhenDisconnected) {
    WifiHostSettings& settings = loaded.load(NETWORKS, DISCONNECTED);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 reassociate", "-iwlan0 select 3"));
}

TEST_F(ConnectNetwork, DoesNotReassociateInAnyOtherState) {
    const char* const states[] = {"INACTIVE",    "SCANNING",        "COMPLETED",  "4WAY_HANDSHAKE",
                                  "ASSOCIATING", "GROUP_HANDSHAKE", "ASSOCIATED", "UNHEARD_OF"};
    for (const char* const state : states) {
        WifiHostSettings& settings =
            loaded.load(NETWORKS, "wpa_state=" + std::string(state) + "\n");
        loaded.answer("OK\n");
        EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
        EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 3")) << state;
    }
}

TEST_F(ConnectNetwork, SelectsNothingWhenItCannotReassociate) {
    WifiHostSettings& settings = loaded.load(NETWORKS, DISCONNECTED);
    loaded.answer("FAIL\n");
    EXPECT_FALSE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 reassociate"));
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_ENABLED);
}

TEST_F(ConnectNetwork, FailsWithoutNetworks) {
    EXPECT_FALSE(loaded.fail().connectNetwork("wlan0", "home"));
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

class DisconnectNetwork : public ConnectNetwork {};

TEST_F(DisconnectNetwork, DisconnectsAndEnablesIt) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("FAIL\n"); // the exit status alone decides
    EXPECT_TRUE(settings.disconnectNetwork("wlan1", "home"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan1 disconnect"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_ENABLED);
}

TEST_F(DisconnectNetwork, LeavesItDisabled) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.disconnectNetwork("wlan0", "cafe"));
    EXPECT_EQ(statusOf(settings, "cafe"), NETWORK_STATUS_DISABLED);
}

// OP-4
TEST_F(DisconnectNetwork, MakesTheNextConnectReassociate) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.disconnectNetwork("wlan0", "home"));
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(),
                ElementsAre("-iwlan0 disconnect", "-iwlan0 reassociate", "-iwlan0 select 3"));
}

TEST_F(DisconnectNetwork, IsNotTheCurrentOneAnyMore) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.disconnectNetwork("wlan0", "home"));
    setStatus(settings, "home", NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTED) << "not touched";
    setStatus(settings, "work", NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(settings.connectNetwork("wlan0", "home"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_ENABLED);
}

TEST_F(DisconnectNetwork, LeavesAnotherCurrentOneCurrent) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.disconnectNetwork("wlan0", "work"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_ENABLED) << "it was the current one";
    EXPECT_THAT(loaded.commands(),
                ElementsAre("-iwlan0 disconnect", "-iwlan0 reassociate", "-iwlan0 select 3"))
        << "the supplicant is disconnected all the same";
}

// OP-3
TEST_F(DisconnectNetwork, SucceedsWithoutACommandWhenThereIsNoneLikeIt) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n", 1);
    const std::string ssids[] = {"",    "h", "Home", std::string(32, 'h'), std::string(200, 'h'),
                                 "\xff"};
    for (const std::string& ssid : ssids)
        EXPECT_TRUE(settings.disconnectNetwork("wlan0", ssid.c_str())) << ssid;
    EXPECT_TRUE(settings.disconnectNetwork("wlan0", nullptr));
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.standIn.reset();
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 3")) << "not disconnected";
}

TEST_F(DisconnectNetwork, ChangesNothingWhenTheClientFails) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    loaded.answer("OK\n", 1);
    EXPECT_FALSE(settings.disconnectNetwork("wlan0", "home"));
    EXPECT_FALSE(settings.disconnectNetwork("fourteen-chars", "home"));
    EXPECT_FALSE(settings.disconnectNetwork("", "home"));
    EXPECT_FALSE(settings.disconnectNetwork(nullptr, "home"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTED);
    loaded.standIn.reset();
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 3")) << "not disconnected";
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_ENABLED) << "it was the current one";
}

TEST_F(DisconnectNetwork, SucceedsWithoutNetworks) {
    EXPECT_TRUE(loaded.fail().disconnectNetwork("wlan0", "home"));
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

} // namespace
