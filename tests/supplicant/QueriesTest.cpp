// The queries: adapters, networks, status.

#include "SupplicantTest.h"

using test::Lines;
using test::openNetworks;
using test::WLAN;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Adapters = test::SupplicantTest;
using NetworkList = test::SupplicantTest;
using Status = test::SupplicantTest;

Lines adapters(WifiUtil& util) {
    platwifi::ReplyLines lines(2);
    EXPECT_TRUE(util.getWifiAdapters(lines.data(), lines.capacity(), &lines.count));
    return test::toStrings(lines);
}

TEST_F(Adapters, AreThoseThatTheSupplicantServes) {
    supplicant.start();
    EXPECT_THAT(adapters(util()), ElementsAre(WLAN));
}

TEST_F(NetworkList, IsEmptyWithoutNetworks) {
    supplicant.start();
    EXPECT_THAT(list(&WifiUtil::getNetworkDatabaseSsids), IsEmpty());
}

TEST_F(NetworkList, HasTheOnlyNetwork) {
    startConnected();
    EXPECT_THAT(list(&WifiUtil::getNetworkDatabaseSsids), ElementsAre("0\thome\tany\t[CURRENT]"));
}

TEST_F(NetworkList, HasIdSsidBssidAndFlagsOfEachNetwork) {
    supplicant.start(openNetworks({"home"}) +
                     "network={\n\tssid=\"work\"\n\tbssid=02:11:22:33:44:55\n\tkey_mgmt=NONE\n}\n"
                     "network={\n\tssid=\"guest\"\n\tkey_mgmt=NONE\n\tdisabled=1\n}\n");
    supplicant.awaitStatus("ssid=home");
    EXPECT_THAT(list(&WifiUtil::getNetworkDatabaseSsids),
                ElementsAre("0\thome\tany\t[CURRENT]", "1\twork\t02:11:22:33:44:55\t",
                            "2\tguest\tany\t[DISABLED]"));
}

TEST_F(NetworkList, HasNoMoreEntriesThanTheCallerCanTake) {
    Lines ssids;
    for (int i = 0; i < 40; ++i)
        ssids.push_back("net " + std::to_string(i));
    supplicant.start(openNetworks(ssids));
    const Lines networks = list(&WifiUtil::getNetworkDatabaseSsids, 32);
    ASSERT_EQ(networks.size(), 32U);
    EXPECT_EQ(networks.back(), "31\tnet 31\tany\t");
}

// 16 characters of two bytes are printed with four characters a byte.
TEST_F(NetworkList, TakesTwoEntriesForALineThatIsTooLong) {
    std::string ssid, printed;
    for (int i = 0; i < 16; ++i) {
        ssid += "é";
        printed += "\\xc3\\xa9";
    }
    supplicant.start("network={\n\tssid=\"" + ssid + "\"\n\tkey_mgmt=NONE\n\tdisabled=1\n}\n");
    const std::string line = "0\t" + printed + "\tany\t[DISABLED]";
    EXPECT_THAT(list(&WifiUtil::getNetworkDatabaseSsids),
                ElementsAre(line.substr(0, 127), line.substr(127)));
}

TEST_F(Status, SaysThatNothingIsConnected) {
    supplicant.start();
    EXPECT_THAT(list(&WifiUtil::getCurrentNetworkStatus), Contains("wpa_state=DISCONNECTED"));
}

TEST_F(Status, HasTheLinesOfTheSupplicant) {
    startConnected();
    const Lines status = list(&WifiUtil::getCurrentNetworkStatus);
    EXPECT_EQ(status, supplicant.ask("status"));
    EXPECT_THAT(status, Contains("ssid=home"));
    EXPECT_THAT(status, Contains("id=0"));
    EXPECT_THAT(status, Contains("key_mgmt=NONE"));
    EXPECT_THAT(status, Contains("wpa_state=COMPLETED"));
}

TEST_F(Status, HasNoMoreEntriesThanTheCallerCanTake) {
    startConnected();
    EXPECT_THAT(list(&WifiUtil::getCurrentNetworkStatus, 2),
                ElementsAre("bssid=01:80:c2:00:00:03", "freq=0"));
}

} // namespace
