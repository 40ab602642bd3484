// The supplicant's configuration file.

#include "SupplicantTest.h"

using test::Lines;
using test::openNetworks;
using test::Supplicant;
using test::WLAN;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

using SavedConfiguration = test::SupplicantTest;
using ReloadedConfiguration = test::SupplicantTest;

TEST_F(SavedConfiguration, IsInTheFile) {
    supplicant.start();
    const unsigned char id = create("home");
    ASSERT_TRUE(util().setNetworkValue(WLAN, id, "psk", "correct horse battery"));
    EXPECT_THAT(supplicant.file(), Not(Contains("\tssid=\"home\"")));
    EXPECT_TRUE(util().saveConfiguration(WLAN));
    EXPECT_THAT(supplicant.file(), Contains("\tssid=\"home\""));
    EXPECT_THAT(supplicant.file(), Contains("\tpsk=\"correct horse battery\""));
}

TEST_F(SavedConfiguration, OutlivesTheSupplicant) {
    supplicant.start(openNetworks({"home"}));
    ASSERT_TRUE(util().setNetworkValue(WLAN, 0, "priority", "5"));
    EXPECT_TRUE(util().saveConfiguration(WLAN));
    supplicant.stop();
    supplicant.startAgain();
    EXPECT_THAT(supplicant.ask("get_network 0 priority"), ElementsAre("5"));
}

TEST_F(SavedConfiguration, FailsIfTheSupplicantMayNotChangeTheFile) {
    supplicant.start(openNetworks({"home"}), Supplicant::Saving::Refused);
    const Lines before = supplicant.file();
    ASSERT_TRUE(util().setNetworkValue(WLAN, 0, "priority", "5"));
    EXPECT_FALSE(util().saveConfiguration(WLAN));
    EXPECT_EQ(supplicant.file(), before);
}

// A network must have its key before it is saved.
TEST_F(SavedConfiguration, LacksANetworkWhoseKeyIsMissing) {
    supplicant.start();
    create("home");
    EXPECT_TRUE(util().saveConfiguration(WLAN));
    EXPECT_THAT(supplicant.file(), Not(Contains("\tssid=\"home\"")));
}

TEST_F(ReloadedConfiguration, HasIdsFrom0Again) {
    supplicant.start(openNetworks({"home", "work", "guest"}));
    ASSERT_TRUE(util().removeNetwork(WLAN, 0));
    ASSERT_TRUE(util().saveConfiguration(WLAN));
    supplicant.awaitStatus("ssid=work");
    EXPECT_THAT(supplicant.networks(), ElementsAre("1\twork\tany\t[CURRENT]", "2\tguest\tany\t"));
    EXPECT_TRUE(util().reloadConfiguration(WLAN));
    supplicant.awaitStatus("id=0");
    EXPECT_THAT(supplicant.networks(), ElementsAre("0\twork\tany\t[CURRENT]", "1\tguest\tany\t"));
}

TEST_F(ReloadedConfiguration, LacksWhatWasNotSaved) {
    supplicant.start();
    create("home");
    EXPECT_TRUE(util().reloadConfiguration(WLAN));
    EXPECT_THAT(supplicant.networks(), IsEmpty());
}

TEST_F(ReloadedConfiguration, IsThatOfTheFile) {
    supplicant.start(openNetworks({"home"}));
    supplicant.replaceFile(openNetworks({"work"}));
    EXPECT_TRUE(util().reloadConfiguration(WLAN));
    EXPECT_THAT(supplicant.ask("get_network 0 ssid"), ElementsAre("\"work\""));
}

TEST_F(ReloadedConfiguration, StaysAsItWasIfTheFileIsDamaged) {
    supplicant.start(openNetworks({"home"}));
    supplicant.replaceFile("network={\n\tssid=\"work\"\n");
    EXPECT_FALSE(util().reloadConfiguration(WLAN));
    EXPECT_THAT(supplicant.ask("get_network 0 ssid"), ElementsAre("\"home\""));
}

TEST_F(ReloadedConfiguration, StaysAsItWasIfTheFileIsMissing) {
    supplicant.start(openNetworks({"home"}));
    supplicant.removeFile();
    EXPECT_FALSE(util().reloadConfiguration(WLAN));
    EXPECT_THAT(supplicant.ask("get_network 0 ssid"), ElementsAre("\"home\""));
}

} // namespace
