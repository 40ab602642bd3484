#include "LoadedSettings.h"

using test::Commands;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

const std::string ONE_DISABLED = "0\thome\tany\t\n3\twork\tany\t\n5\tcafe\tany\t[DISABLED]\n";
const Commands ROAMING = {"-iwlan0 disconnect", "-iwlan0 set_network 5 disabled 0",
                          "-iwlan0 set_network 3 disabled 0", "-iwlan0 set_network 0 disabled 0",
                          "-iwlan0 reassociate"};

class RoamNetworks : public test::SettingsTest {
protected:
    RoamNetworks() {
        load(ONE_DISABLED, "ssid=home\nwpa_state=COMPLETED\n");
        answer("OK\n");
    }

    /// Replaces the script: the client refuses this command and accepts all others.
    void refuse(const test::Arguments& command, int status) {
        standIn.reset();
        standIn.on(command).prints("FAIL\n").exits(status);
        answer("OK\n");
    }
};

// OP-6
TEST_F(RoamNetworks, DisconnectsEnablesEveryNetworkAndReassociates) {
    EXPECT_TRUE(settings().roamNetworks("wlan0"));
    EXPECT_EQ(commands(), ROAMING);
}

TEST_F(RoamNetworks, ChangesNothingInMemory) {
    EXPECT_TRUE(settings().roamNetworks("wlan0"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf("cafe"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(state(), WPA_STATE_COMPLETED);
}

// LOAD-3
TEST_F(RoamNetworks, AsksTheAdapterThatItIsGiven) {
    EXPECT_TRUE(settings().roamNetworks("wlan1"));
    EXPECT_THAT(commands(), SizeIs(ROAMING.size()));
    EXPECT_THAT(commands(), testing::Each(testing::StartsWith("-iwlan1 ")));
}

TEST_F(RoamNetworks, GoesOnWhenANetworkCannotBeEnabled) {
    refuse({"-iwlan0", "set_network", "3", "disabled", "0"}, 1);
    EXPECT_TRUE(settings().roamNetworks("wlan0"));
    EXPECT_EQ(commands(), ROAMING);
}

TEST_F(RoamNetworks, StopsWhenItCannotDisconnect) {
    refuse({"-iwlan0", "disconnect"}, 1);
    EXPECT_FALSE(settings().roamNetworks("wlan0"));
    for (const char* const iface : {static_cast<const char*>(nullptr), "", "fourteen-chars"})
        EXPECT_FALSE(settings().roamNetworks(iface));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 disconnect"));
}

TEST_F(RoamNetworks, FailsWhenItCannotReassociate) {
    refuse({"-iwlan0", "reassociate"}, 0);
    EXPECT_FALSE(settings().roamNetworks("wlan0"));
    EXPECT_EQ(commands(), ROAMING);
}

// OP-6
TEST_F(RoamNetworks, DisconnectsAndReassociatesWithoutNetworks) {
    for (const bool isLoaded : {true, false}) {
        isLoaded ? load("") : fail();
        answer("OK\n");
        EXPECT_TRUE(settings().roamNetworks("wlan1"));
        EXPECT_THAT(commands(), ElementsAre("-iwlan1 disconnect", "-iwlan1 reassociate"));
    }
}

} // namespace
