#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using platwifi::SettingsLock;
using test::Commands;
using test::ssidsOf;
using test::statusOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n5\tcafe\tany\t\n";

class RemoveNetwork : public testing::Test {
protected:
    test::LoadedSettings loaded;
};

TEST_F(RemoveNetwork, RemovesItFromTheSupplicantAndFromMemory) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.removeNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 remove_network 3"));
    EXPECT_THAT(ssidsOf(settings), ElementsAre("cafe", "home"));
    EXPECT_TRUE(settings.removeNetwork("wlan1", "cafe"));
    EXPECT_TRUE(settings.removeNetwork("wlan0", "home"));
    EXPECT_THAT(loaded.commands(),
                ElementsAre("-iwlan0 remove_network 3", "-iwlan1 remove_network 5",
                            "-iwlan0 remove_network 0"));
    EXPECT_THAT(ssidsOf(settings), IsEmpty());
}

// OP-3
TEST_F(RemoveNetwork, SucceedsWithoutACommandWhenThereIsNoneLikeIt) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("FAIL\n", 1);
    const std::string ssids[] = {"",    "h", "Home", std::string(32, 'h'), std::string(200, 'h'),
                                 "\xff"};
    for (const std::string& ssid : ssids)
        EXPECT_TRUE(settings.removeNetwork("wlan0", ssid.c_str())) << ssid;
    EXPECT_TRUE(settings.removeNetwork("wlan0", nullptr));
    EXPECT_TRUE(settings.removeNetwork(nullptr, nullptr));
    EXPECT_THAT(loaded.commands(), IsEmpty());
    EXPECT_EQ(ssidsOf(settings).size(), 3U);
}

TEST_F(RemoveNetwork, LeavesItWhereItIsWhenTheSupplicantRefuses) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("FAIL\n");
    EXPECT_FALSE(settings.removeNetwork("wlan0", "work"));
    EXPECT_FALSE(settings.removeNetwork("fourteen-chars", "work"));
    EXPECT_FALSE(settings.removeNetwork("", "work"));
    EXPECT_FALSE(settings.removeNetwork(nullptr, "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 remove_network 3"));
    EXPECT_EQ(ssidsOf(settings).size(), 3U);
}

TEST_F(RemoveNetwork, TakesItsOwnTextForTheSsid) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("OK\n");
    const SettingsLock lock(settings);
    EXPECT_TRUE(settings.removeNetwork("wlan0", settings.getNetwork("wlan0", "work")->getSsid()));
    EXPECT_THAT(ssidsOf(settings), ElementsAre("cafe", "home"));
}

// When the removed network was still the current one, connecting to another one would touch it.
TEST_F(RemoveNetwork, IsNotTheCurrentOneAnyMore) {
    WifiHostSettings& settings = loaded.load(NETWORKS, "ssid=work\nwpa_state=COMPLETED\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.removeNetwork("wlan0", "work"));
    EXPECT_TRUE(settings.connectNetwork("wlan0", "home"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTING);
}

TEST_F(RemoveNetwork, LeavesAnotherCurrentOneAlone) {
    WifiHostSettings& settings = loaded.load(NETWORKS, "ssid=work\nwpa_state=COMPLETED\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.removeNetwork("wlan0", "home"));
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(settings.connectNetwork("wlan0", "cafe"));
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_ENABLED) << "it was the current one";
}

TEST_F(RemoveNetwork, RemovesTheFirstOfTheListWhenSeveralHaveTheSsid) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("OK\n");
    const SettingsLock lock(settings);
    settings.getNetwork("wlan0", "home")->setSsid("work");
    EXPECT_TRUE(settings.removeNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 remove_network 3"));
    EXPECT_EQ(settings.getNetwork("wlan0", "work")->getNetworkId(), 0);
}

TEST_F(RemoveNetwork, SucceedsWithoutNetworks) {
    EXPECT_TRUE(loaded.fail().removeNetwork("wlan0", "home"));
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

} // namespace
