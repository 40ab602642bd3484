// Saving: what is in the configuration file afterwards, and which network a change reaches.

#include "SettingsTest.h"

using test::openNetworks;
using test::WLAN;
using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;

namespace {

class Saving : public test::SettingsTest {
protected:
    // Of every network in the supplicant, as "SSID priority".
    test::Lines priorities() const {
        test::Lines lines;
        for (const std::string& ssid : configuredSsids())
            lines.push_back(
                ssid + " " +
                supplicant.ask("get_network " + std::to_string(lines.size()) + " priority").at(0));
        return lines;
    }

    void expectCurrent(const std::string& ssid) const {
        supplicant.awaitStatus("wpa_state=COMPLETED");
        EXPECT_THAT(supplicant.ask("status"), Contains("ssid=" + ssid));
    }
};

TEST_F(Saving, WritesANewNetworkIntoTheFile) {
    load(openNetworks({"home"}));
    ASSERT_TRUE(settings().addNetwork(WLAN, "new"));
    change("new", [](WifiNetwork& network) {
        network.setKeyManagement(KEY_MGMT_WPA_PSK);
        network.setPsk("correct horse");
        network.setProtocol(PROTOCOL_RSN);
        network.setPriority(3);
        return network.setSsidBroadcasted(false);
    });
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(supplicant.file(),
                IsSupersetOf({"\tssid=\"new\"", "\tkey_mgmt=WPA-PSK", "\tpsk=\"correct horse\"",
                              "\tproto=RSN", "\tpriority=3", "\tscan_ssid=1"}));
    settings().refreshAllSettings();
    expectAllAsConfigured();
}

TEST_F(Saving, WritesNothingThatWasNotChanged) {
    load(openNetworks({"home"}) + "network={\n\tssid=\"office\"\n\tpsk=\"correct horse\"\n"
                                  "\tkey_mgmt=WPA-PSK IEEE8021X\n}\n");
    changePriority("office", 5);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(supplicant.file(), IsSupersetOf({"\tpsk=\"correct horse\"",
                                                 "\tkey_mgmt=WPA-PSK IEEE8021X", "\tpriority=5"}));
}

// By default the key management is a kind of WPA, and the supplicant saves no such network without a
// key. The network that is left in memory must not be taken for another one.
// ID-2, ID-3
TEST_F(Saving, LosesANewNetworkWithoutAnySecurityInTheSupplicant) {
    load(openNetworks({"home", "work"}));
    ASSERT_TRUE(settings().removeNetwork(WLAN, "home"));
    ASSERT_TRUE(settings().addNetwork(WLAN, "new"));
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(configuredSsids(), ElementsAre("work"));
    EXPECT_FALSE(settings().connectNetwork(WLAN, "new"));
    EXPECT_FALSE(settings().removeNetwork(WLAN, "new"));
    EXPECT_THAT(configuredSsids(), ElementsAre("work"));
}

TEST_F(Saving, FailsIfTheSupplicantMayNotSave) {
    supplicant.replaceFile(openNetworks({"home"}), test::Supplicant::Saving::Refused);
    ASSERT_THAT(supplicant.ask("reconfigure"), ElementsAre("OK"));
    settings().refreshAllSettings();
    const test::Lines before = supplicant.file();
    ASSERT_TRUE(settings().addNetwork(WLAN, "new"));
    EXPECT_EQ(settings().saveNetworkSettings(), 0);
    EXPECT_EQ(supplicant.file(), before);
}

// The supplicant assigns new network ids when it reads its file.
class RenumberedNetworks : public Saving {
protected:
    RenumberedNetworks() {
        load(openNetworks({"first", "second", "third", "fourth"}), "ssid=first");
        EXPECT_TRUE(settings().removeNetwork(WLAN, "first"));
        EXPECT_EQ(settings().saveNetworkSettings(), 1);
        EXPECT_THAT(configuredSsids(), ElementsAre("second", "third", "fourth"));
    }
};

TEST_F(RenumberedNetworks, AreSelectedBySsid) {
    EXPECT_TRUE(settings().connectNetwork(WLAN, "third"));
    expectCurrent("third");
}

TEST_F(RenumberedNetworks, AreRemovedBySsid) {
    EXPECT_TRUE(settings().removeNetwork(WLAN, "second"));
    EXPECT_THAT(configuredSsids(), ElementsAre("third", "fourth"));
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_TRUE(settings().removeNetwork(WLAN, "third")) << "after new ids once more";
    EXPECT_THAT(configuredSsids(), ElementsAre("fourth"));
}

TEST_F(RenumberedNetworks, AreChangedBySsid) {
    changePriority("third", 9);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(priorities(), ElementsAre("second 0", "third 9", "fourth 0"));
}

TEST_F(RenumberedNetworks, AreAllEnabledForRoaming) {
    for (const char* const id : {"0", "1", "2"})
        ASSERT_THAT(supplicant.ask(std::string("disable_network ") + id), ElementsAre("OK"));
    EXPECT_TRUE(settings().roamNetworks(WLAN));
    EXPECT_THAT(supplicant.networks(), Not(Contains(testing::HasSubstr("[DISABLED]"))));
}

} // namespace
