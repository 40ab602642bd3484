// Whether the supplicant runs, and whether replies begin with a stamp.

#include "SupplicantTest.h"

using test::openNetworks;
using test::WLAN;
using testing::ElementsAre;

namespace {

using Presence = test::SupplicantTest;

TEST_F(Presence, IsReadFromThePidFile) {
    EXPECT_FALSE(util().isWifiEnabled(nullptr));
    supplicant.start();
    EXPECT_TRUE(util().isWifiEnabled(nullptr));
    supplicant.stop();
    EXPECT_FALSE(util().isWifiEnabled(nullptr));
}

TEST_F(Presence, IsReadFromTheProcessList) {
    EXPECT_FALSE(util().isWifiEnabled(WLAN));
    supplicant.start();
    EXPECT_TRUE(util().isWifiEnabled(WLAN));
    supplicant.stop();
    EXPECT_FALSE(util().isWifiEnabled(WLAN));
}

// RUNS-2
TEST_F(Presence, OfAnyInterfaceCountsInTheProcessList) {
    supplicant.start();
    EXPECT_TRUE(util().isWifiEnabled("wlan7"));
}

// RUNS-3
TEST_F(Presence, IsStillReadFromThePidFileAfterACrash) {
    supplicant.start();
    supplicant.crash();
    EXPECT_TRUE(util().isWifiEnabled(nullptr));
    EXPECT_FALSE(util().isWifiEnabled(WLAN));
}

// A BSSID has colons, as a stamp has: if stamps were expected, its beginning would be removed.
TEST_F(Presence, GivesRepliesWithoutStamps) {
    startConnected();
    EXPECT_EQ(list(&WifiUtil::getCurrentNetworkStatus).at(0), "bssid=01:80:c2:00:00:03");
}

TEST_F(Presence, IsNotNeededByTheInstance) {
    WifiUtil& instance = util();
    supplicant.start(openNetworks({"home"}));
    EXPECT_EQ(list(&WifiUtil::getNetworkDatabaseSsids).size(), 1U);
    EXPECT_EQ(&util(), &instance);
}

} // namespace
