// Operations on one network, with their effect in the supplicant.

#include "SettingsTest.h"
#include "WatchedClient.h"
#include "supplicant/ReplyLines.h"
#include "support/Lines.h"

using test::openNetworks;
using test::WLAN;
using testing::Contains;
using testing::ElementsAre;

namespace {

class Operations : public test::SettingsTest {
protected:
    Operations() { load(openNetworks({"home", "work", "guest"}), "ssid=home"); }

    // The flag of the network in the supplicant's list.
    std::string listFlag(const std::string& ssid) const {
        for (const std::string& line : supplicant.networks()) {
            if (line.find("\t" + ssid + "\t") != std::string::npos)
                return line.substr(line.rfind('\t') + 1);
        }
        return "not there";
    }
};

TEST_F(Operations, AddAnEnabledNetwork) {
    EXPECT_TRUE(settings().addNetwork(WLAN, "new"));
    EXPECT_THAT(configuredSsids(), ElementsAre("home", "work", "guest", "new"));
    EXPECT_EQ(supplicant.ask("get_network " + loaded("new", "id") + " ssid"),
              test::Lines{"\"new\""});
    EXPECT_EQ(listFlag("new"), "");
    EXPECT_THAT(loadedSsids(), ElementsAre("new", "guest", "work", "home"));
}

TEST_F(Operations, AddNoSecondNetworkWithAnSsid) {
    EXPECT_FALSE(settings().addNetwork(WLAN, "work"));
    EXPECT_THAT(configuredSsids(), ElementsAre("home", "work", "guest"));
}

TEST_F(Operations, RemoveTheNetworkWithTheSsid) {
    EXPECT_TRUE(settings().removeNetwork(WLAN, "work"));
    EXPECT_THAT(configuredSsids(), ElementsAre("home", "guest"));
    EXPECT_TRUE(settings().removeNetwork(WLAN, "work")) << "it is removed already";
    EXPECT_THAT(configuredSsids(), ElementsAre("home", "guest"));
    EXPECT_THAT(loadedSsids(), ElementsAre("guest", "home"));
}

TEST_F(Operations, ConnectToTheNetworkWithTheSsid) {
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    supplicant.awaitStatus("ssid=work");
    supplicant.awaitStatus("wpa_state=COMPLETED");
    EXPECT_EQ(listFlag("work"), "[CURRENT]");
    EXPECT_EQ(loaded("work", "status"), "4") << "connecting";
    EXPECT_EQ(loaded("home", "status"), "1") << "enabled";
    EXPECT_FALSE(settings().connectNetwork(WLAN, "nowhere"));
    EXPECT_EQ(listFlag("work"), "[CURRENT]");
}

TEST_F(Operations, DisconnectUntilTheNextConnection) {
    EXPECT_TRUE(settings().disconnectNetwork(WLAN, "home"));
    supplicant.awaitStatus("wpa_state=DISCONNECTED");
    EXPECT_EQ(loaded("home", "status"), "1");
    EXPECT_TRUE(settings().connectNetwork(WLAN, "guest"));
    supplicant.awaitStatus("ssid=guest");
    supplicant.awaitStatus("wpa_state=COMPLETED");
}

TEST_F(Operations, ReassociateBeforeAConnectionThatFollowsADisconnection) {
    const test::WatchedClient client;
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    EXPECT_TRUE(settings().disconnectNetwork(WLAN, "work"));
    supplicant.awaitStatus("wpa_state=DISCONNECTED");
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    supplicant.awaitStatus("ssid=work");
    EXPECT_THAT(client.commands(), ElementsAre("-iwlan0 select 1", "-iwlan0 disconnect",
                                               "-iwlan0 reassociate", "-iwlan0 select 1"));
}

TEST_F(Operations, DisconnectFromNoNetworkIfTheSsidIsUnknown) {
    EXPECT_TRUE(settings().disconnectNetwork(WLAN, "nowhere"));
    EXPECT_THAT(supplicant.ask("status"), Contains("wpa_state=COMPLETED"));
}

TEST_F(Operations, RoamWithEveryNetworkEnabledAgain) {
    EXPECT_TRUE(settings().connectNetwork(WLAN, "guest"));
    supplicant.awaitStatus("ssid=guest");
    ASSERT_EQ(listFlag("home"), "[DISABLED]") << "a selection disables the others";
    EXPECT_TRUE(settings().roamNetworks(WLAN));
    supplicant.awaitStatus("wpa_state=COMPLETED");
    for (const char* const ssid : {"home", "work", "guest"})
        EXPECT_NE(listFlag(ssid), "[DISABLED]") << ssid;
}

TEST_F(Operations, ListTheAdapter) {
    platwifi::ReplyLines names(2);
    EXPECT_TRUE(settings().getWifiAdapters(names.data(), names.capacity(), &names.count));
    EXPECT_THAT(test::toStrings(names), ElementsAre(WLAN));
}

} // namespace
