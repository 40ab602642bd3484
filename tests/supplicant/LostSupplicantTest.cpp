// A supplicant that is gone, or goes while its networks are loaded.

#include "SettingsTest.h"
#include "WatchedClient.h"

using test::Leftovers;
using test::openNetworks;
using test::WLAN;
using testing::IsEmpty;

namespace {

// The third question about a network finds no supplicant any more.
const std::string CRASH_AMID_A_LOAD = R"sh(
if [ "$(grep -c get_network /tmp/watched-client/commands)" = 3 ];
then supplicant = $(cat / var / run / wpa_supplicant.pid) kill - 9 "$supplicant" until grep -
                  q '^State:.Z' "/proc/$supplicant/status";
do :; done
fi)sh";

void expectNoNetworks(WifiHostSettings& settings) {
    EXPECT_THAT(test::loadedRecords(settings), IsEmpty());
    EXPECT_FALSE(settings.connectNetwork(WLAN, "home"));
    EXPECT_TRUE(settings.lockSettings());
    EXPECT_TRUE(settings.unlockSettings());
}

using LostSupplicant = test::SettingsTest;

TEST_F(LostSupplicant, IsMissedUntilAReloadFindsItAgain) {
    load(openNetworks({"home", "work"}));
    const Leftovers before = Leftovers::now();
    {
        const test::WatchedClient client(CRASH_AMID_A_LOAD);
        EXPECT_TRUE(settings().refreshAllSettings());
    }
    supplicant.crash(); // it is dead, and still to be reaped
    expectNoNetworks(settings());
    WifiHostSettings::reload(nullptr);
    expectNoNetworks(settings());
    supplicant.startAgain();
    expectNoNetworks(settings()); // until somebody asks for them
    supplicant.awaitStatus("wpa_state=COMPLETED");
    WifiHostSettings::reload(nullptr);
    expectAllAsConfigured();
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    supplicant.awaitStatus("ssid=work");
    EXPECT_TRUE(Leftovers::now() == before);
}

} // namespace
