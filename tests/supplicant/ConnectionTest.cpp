// Selecting a network, disconnecting, and custom commands.

#include "SupplicantTest.h"

using test::openNetworks;
using test::WLAN;
using testing::ElementsAre;

namespace {

class Connection : public test::SupplicantTest {
protected:
    Connection() {
        supplicant.start(openNetworks({"home", "work", "guest"}));
        supplicant.awaitStatus("ssid=home");
    }
};

TEST_F(Connection, GoesToTheSelectedNetworkAndDisablesTheOthers) {
    EXPECT_TRUE(util().connectToNetwork(WLAN, 1));
    supplicant.awaitStatus("id=1");
    supplicant.awaitStatus("wpa_state=COMPLETED");
    EXPECT_THAT(supplicant.networks(),
                ElementsAre("0\thome\tany\t[DISABLED]", "1\twork\tany\t[CURRENT]",
                            "2\tguest\tany\t[DISABLED]"));
}

// The client reports the refusal only by what it prints, which the library does not read here.
TEST_F(Connection, ToAnUnknownNetworkIsNoFailureAndChangesNothing) {
    const test::Lines before = supplicant.networks();
    EXPECT_TRUE(util().connectToNetwork(WLAN, 7));
    EXPECT_EQ(supplicant.networks(), before);
    EXPECT_THAT(supplicant.ask("status"), testing::Contains("id=0"));
}

TEST_F(Connection, EndsByADisconnectionWithAnyNetworkId) {
    EXPECT_TRUE(util().disconnectFromNetwork(WLAN, 7));
    supplicant.awaitStatus("wpa_state=DISCONNECTED");
}

TEST_F(Connection, ComesBackByReassociation) {
    ASSERT_THAT(supplicant.ask("disconnect"), ElementsAre("OK"));
    supplicant.awaitStatus("wpa_state=DISCONNECTED");
    EXPECT_TRUE(util().forceReassociation(WLAN));
    supplicant.awaitStatus("wpa_state=COMPLETED");
}

using CustomCommand = Connection;

TEST_F(CustomCommand, SetsThePreferredAccessPoint) {
    EXPECT_TRUE(util().executeCustom(WLAN, 1, "bssid", "02:11:22:33:44:55"));
    EXPECT_THAT(supplicant.ask("get_network 1 bssid"), ElementsAre("02:11:22:33:44:55"));
}

TEST_F(CustomCommand, ClearsThePreferredAccessPoint) {
    ASSERT_THAT(supplicant.ask("bssid 1 02:11:22:33:44:55"), ElementsAre("OK"));
    EXPECT_TRUE(util().executeCustom(WLAN, 1, "bssid", "00:00:00:00:00:00"));
    EXPECT_THAT(supplicant.ask("get_network 1 bssid"), ElementsAre("FAIL"));
}

TEST_F(CustomCommand, RunsWithoutAValue) {
    EXPECT_TRUE(util().executeCustom(WLAN, 1, "disable_network", nullptr));
    EXPECT_THAT(supplicant.ask("get_network 1 disabled"), ElementsAre("1"));
}

TEST_F(CustomCommand, FailsIfItIsRefused) {
    EXPECT_FALSE(util().executeCustom(WLAN, 1, "bssid", "any"));
    EXPECT_FALSE(util().executeCustom(WLAN, 7, "bssid", "02:11:22:33:44:55"));
    EXPECT_FALSE(util().executeCustom(WLAN, 1, "bssid", nullptr));
    EXPECT_FALSE(util().executeCustom(WLAN, 1, "no_such_command", nullptr));
    EXPECT_FALSE(util().executeCustom(WLAN, 1, "dis", nullptr)) << "ambiguous";
    EXPECT_THAT(supplicant.ask("get_network 1 bssid"), ElementsAre("FAIL"));
    EXPECT_THAT(supplicant.ask("get_network 1 disabled"), ElementsAre("0"));
}

} // namespace
