#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "model/WifiTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using test::Commands;
using test::statusOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n5\tcafe\tany\t[DISABLED]\n";
const Commands ROAMING = {"-iwlan0 disconnect", "-iwlan0 set_network 5 disabled 0",
                          "-iwlan0 set_network 3 disabled 0", "-iwlan0 set_network 0 disabled 0",
                          "-iwlan0 reassociate"};

class RoamNetworks : public testing::Test {
protected:
    test::LoadedSettings loaded;
};

// OP-6
TEST_F(RoamNetworks, DisconnectsEnablesEveryNetworkAndReassociates) {
    WifiHostSettings& settings = loaded.load(NETWORKS, "ssid=home\nwpa_state=COMPLETED\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.roamNetworks("wlan0"));
    EXPECT_EQ(loaded.commands(), ROAMING);
}

TEST_F(RoamNetworks, ChangesNothingInMemory) {
    WifiHostSettings& settings = loaded.load(NETWORKS, "ssid=home\nwpa_state=COMPLETED\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.roamNetworks("wlan0"));
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(statusOf(settings, "work"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf(settings, "cafe"), NETWORK_STATUS_DISABLED);
    loaded.standIn.reset();
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 3")) << "not disconnected";
    EXPECT_EQ(statusOf(settings, "home"), NETWORK_STATUS_ENABLED) << "it was the current one";
}

// LOAD-3
TEST_F(RoamNetworks, AsksTheAdapterThatItIsGiven) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.roamNetworks("wlan1"));
    EXPECT_EQ(loaded.commands().size(), ROAMING.size());
    EXPECT_THAT(loaded.commands(), testing::Each(testing::StartsWith("-iwlan1 ")));
}

TEST_F(RoamNetworks, GoesOnWhenANetworkCannotBeEnabled) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.standIn.on({"-iwlan0", "set_network", "3", "disabled", "0"}).prints("FAIL\n").exits(1);
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.roamNetworks("wlan0"));
    EXPECT_EQ(loaded.commands(), ROAMING);
}

TEST_F(RoamNetworks, StopsWhenItCannotDisconnect) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.standIn.on({"-iwlan0", "disconnect"}).exits(1);
    loaded.answer("OK\n");
    EXPECT_FALSE(settings.roamNetworks("wlan0"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 disconnect"));
    EXPECT_FALSE(settings.roamNetworks("fourteen-chars"));
    EXPECT_FALSE(settings.roamNetworks(""));
    EXPECT_FALSE(settings.roamNetworks(nullptr));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 disconnect"));
}

TEST_F(RoamNetworks, TellsWhetherItCouldReassociate) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    loaded.standIn.on({"-iwlan0", "reassociate"}).prints("FAIL\n");
    loaded.answer("OK\n");
    EXPECT_FALSE(settings.roamNetworks("wlan0"));
    EXPECT_EQ(loaded.commands(), ROAMING);
}

// OP-6
TEST_F(RoamNetworks, DisconnectsAndReassociatesWithoutNetworks) {
    WifiHostSettings& empty = loaded.load("");
    loaded.answer("OK\n");
    EXPECT_TRUE(empty.roamNetworks("wlan1"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan1 disconnect", "-iwlan1 reassociate"));
    WifiHostSettings& failed = loaded.fail();
    loaded.answer("OK\n");
    EXPECT_TRUE(failed.roamNetworks("wlan1"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan1 disconnect", "-iwlan1 reassociate"));
}

} // namespace
