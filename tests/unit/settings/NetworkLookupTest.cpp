#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using platwifi::SettingsLock;
using testing::IsEmpty;

namespace {

const std::string NETWORKS = "0\thome\tany\t\n1\twork\tany\t\n2\tcaf\\xc3\\xa9\tany\t\n";

class NetworkLookup : public testing::Test {
protected:
    test::LoadedSettings loaded;
};

TEST_F(NetworkLookup, FindsTheExactSsidWhateverTheInterface) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    const SettingsLock lock(settings);
    for (const char* const iface : {"wlan0", "wlan1", "", static_cast<const char*>(nullptr)}) {
        WifiNetwork* const network = settings.getNetwork(iface, "work");
        ASSERT_NE(network, nullptr);
        EXPECT_STREQ(network->getSsid(), "work");
        EXPECT_EQ(network->getNetworkId(), 1);
    }
    EXPECT_NE(settings.getNetwork("wlan0", "caf\\xc3\\xa9"), nullptr);
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(NetworkLookup, FindsNothingElse) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    const SettingsLock lock(settings);
    const std::string longSsid(200, 'h');
    for (const char* const ssid : {static_cast<const char*>(nullptr), "", "Home", "hom", "home ",
                                   "h", longSsid.c_str(), "\xff\xfe"})
        EXPECT_EQ(settings.getNetwork("wlan0", ssid), nullptr) << (ssid ? ssid : "null");
}

TEST_F(NetworkLookup, FindsTheFirstOfTheListWhenSeveralHaveTheSsid) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n1\twork\tany\t\n");
    const SettingsLock lock(settings);
    settings.getNetwork("wlan0", "home")->setSsid("work"); // the last of the list
    EXPECT_EQ(settings.getNetwork("wlan0", "work")->getNetworkId(), 1);
    settings.getNetwork("wlan0", "work")->setSsid("home");
    EXPECT_EQ(settings.getNetwork("wlan0", "work")->getNetworkId(), 0);
}

TEST_F(NetworkLookup, PassesOverANetworkWithoutSsid) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    const SettingsLock lock(settings);
    settings.getNetwork("wlan0", "work")->setSsid(nullptr);
    EXPECT_EQ(settings.getNetwork("wlan0", nullptr), nullptr);
    EXPECT_EQ(settings.getNetwork("wlan0", ""), nullptr);
    EXPECT_NE(settings.getNetwork("wlan0", "home"), nullptr) << "behind it";
}

TEST_F(NetworkLookup, FindsAnEmptySsid) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    const SettingsLock lock(settings);
    WifiNetwork* const network = settings.getNetwork("wlan0", "work");
    network->setSsid("");
    EXPECT_EQ(settings.getNetwork("wlan0", ""), network);
}

TEST_F(NetworkLookup, FindsNothingWithoutNetworks) {
    EXPECT_EQ(loaded.fail().getNetwork("wlan0", "home"), nullptr);
}

} // namespace
