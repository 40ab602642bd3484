// A supplicant that ends while its networks are loaded.

#include "SettingsTest.h"
#include "WatchedClient.h"

using test::Leftovers;
using test::openNetworks;
using test::WLAN;
using testing::IsEmpty;

namespace {

// Kills the supplicant before the client's third get_network.
const std::string CRASH_DURING_A_LOAD =
    "if [ $(grep -c get_network /tmp/watched-client/commands) = 3 ]; then\n"
    "    supplicant=$(cat /var/run/wpa_supplicant.pid)\n"
    "    kill -9 $supplicant\n"
    "    until grep -q '^State:.Z' /proc/$supplicant/status; do :; done\n"
    "fi";

void expectNoNetworks(WifiHostSettings& settings) {
    EXPECT_THAT(test::loadedRecords(settings), IsEmpty());
    EXPECT_FALSE(settings.connectNetwork(WLAN, "home"));
    EXPECT_TRUE(settings.lockSettings());
    EXPECT_TRUE(settings.unlockSettings());
}

using LostSupplicant = test::SettingsTest;

TEST_F(LostSupplicant, LeavesNoNetworksUntilAReload) {
    load(openNetworks({"home", "work"}));
    const Leftovers before = Leftovers::now();
    {
        const test::WatchedClient client(CRASH_DURING_A_LOAD);
        EXPECT_TRUE(settings().refreshAllSettings());
        EXPECT_THAT(client.commands(), testing::Contains("-iwlan0 get_network 1 priority"));
    }
    supplicant.crash(); // reaps it
    expectNoNetworks(settings());
    WifiHostSettings::reload(nullptr);
    expectNoNetworks(settings());
    supplicant.startAgain();
    EXPECT_TRUE(settings().addNetwork(WLAN, "new")) << "the supplicant accepts it";
    expectNoNetworks(settings()); // before a reload
    supplicant.awaitStatus("wpa_state=COMPLETED");
    WifiHostSettings::reload(nullptr);
    EXPECT_THAT(loadedSsids(), testing::ElementsAre("new", "work", "home"));
    expectAllAsConfigured();
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    supplicant.awaitStatus("ssid=work");
    EXPECT_TRUE(Leftovers::now() == before);
}

} // namespace
