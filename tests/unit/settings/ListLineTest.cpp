#include "settings/replies/ListLine.h"

#include "model/WifiNetwork.h"

#include <gtest/gtest.h>

#include <string>

using namespace platwifi;

namespace {

constexpr const char* ZERO = "00:00:00:00:00:00";
constexpr const char* BSSID = "02:11:22:33:44:55";

struct Read {
    const char* line;
    unsigned int id;
    const char* ssid;
    const char* bssid;
};

TEST(ListLine, TellsNumberSsidAndBssid) {
    const Read rows[] = {
        // as the client prints them
        {"0\tlab-psk\tany\t[CURRENT]", 0, "lab-psk", ZERO},
        {"2\tno such net\t02:11:22:33:44:55\t", 2, "no such net", BSSID},
        {"0\t\tany\t[DISABLED]", 0, "SSID N/A", ZERO},
        {"3\t\t02:11:22:33:44:55\t[DISABLED]", 3, "SSID N/A", BSSID},
        {"1\t\\xe4\\\\ \\\"x\\\"\tany\t", 1, "\\xe4\\\\ \\\"x\\\"", ZERO},
        // without a column for the SSID
        {"0\tany\t[CURRENT]", 0, "SSID N/A", ZERO},
        {"4\t02:11:22:33:44:55", 4, "SSID N/A", BSSID},
        {"4\ta:b\t02:11:22:33:44:55", 4, "SSID N/A", "a:b"},
        // a BSSID that is none
        {"5\thome\t[CURRENT]", 5, "home", ZERO},
        {"5\thome\tany", 5, "home", ZERO},
        {"5\tanything\tnone", 5, "anything", ZERO},
        // numbers
        {"255\thome\tany", 255, "home", ZERO},
        {"256\thome\tany", 0, "home", ZERO},
        {"300\thome\tany", 44, "home", ZERO},
        {"-1\thome\tany", 255, "home", ZERO},
        {"99999999999\thome\tany", 255, "home", ZERO},
        {"FAIL\thome\tany", 0, "home", ZERO},
        // tabs alone separate
        {"\t7\t\thome\t\tany\t", 7, "home", ZERO},
        {"8 home\tother net\tany", 8, "other net", ZERO},
    };
    for (const Read& row : rows) {
        SCOPED_TRACE(row.line);
        WifiNetwork network;
        ASSERT_TRUE(readListLine(row.line, network));
        EXPECT_EQ(network.getNetworkId(), row.id);
        EXPECT_STREQ(network.getSsid(), row.ssid);
        EXPECT_STREQ(network.getBssid(), row.bssid);
    }
}

TEST(ListLine, TellsOfNoNetworkWithoutItsFields) {
    for (const char* line : {"", "\t", "\t\t\t", "0", "FAIL", "0\t", "0\thome", "0\thome\t"}) {
        WifiNetwork network;
        EXPECT_FALSE(readListLine(line, network)) << line;
    }
}

TEST(ListLine, HasItsFlagAnywhere) {
    EXPECT_EQ(listFlagIn("0\thome\tany\t[DISABLED]"), ListFlag::DISABLED);
    EXPECT_EQ(listFlagIn("0\thome\tany\t[CURRENT]"), ListFlag::CURRENT);
    EXPECT_EQ(listFlagIn("0\thome\tany\t[CURRENT][DISABLED]"), ListFlag::DISABLED);
    EXPECT_EQ(listFlagIn("0\thome\tany\t[CURRENT][P2P-PERSISTENT]"), ListFlag::CURRENT);
    EXPECT_EQ(listFlagIn("0\thome\tany\t[TEMP-DISABLED]"), ListFlag::NONE);
    EXPECT_EQ(listFlagIn("0\tDISABLED\tany\tCURRENT"), ListFlag::NONE);
    EXPECT_EQ(listFlagIn("0\thome\tany\t"), ListFlag::NONE);
    EXPECT_EQ(listFlagIn("0\tmy [DISABLED] net\tany\t"), ListFlag::DISABLED);
    EXPECT_EQ(listFlagIn(""), ListFlag::NONE);
}

// LOAD-22
TEST(ListLine, ItsFlagGivesTheStatus) {
    struct Row {
        ListFlag flag;
        unsigned int before;
        unsigned int after;
    };
    const Row rows[] = {
        {ListFlag::DISABLED, NETWORK_STATUS_UNKNOWN, NETWORK_STATUS_DISABLED},
        {ListFlag::DISABLED, NETWORK_STATUS_CONNECTED, NETWORK_STATUS_DISABLED},
        {ListFlag::CURRENT, NETWORK_STATUS_UNKNOWN, NETWORK_STATUS_CONNECTING},
        {ListFlag::CURRENT, NETWORK_STATUS_DISABLED, NETWORK_STATUS_CONNECTING},
        {ListFlag::CURRENT, NETWORK_STATUS_CONNECTED, NETWORK_STATUS_CONNECTED},
        {ListFlag::NONE, NETWORK_STATUS_UNKNOWN, NETWORK_STATUS_ENABLED},
        {ListFlag::NONE, NETWORK_STATUS_CONNECTED, NETWORK_STATUS_ENABLED},
        {ListFlag::NONE, NETWORK_STATUS_DISABLED, NETWORK_STATUS_ENABLED},
    };
    for (const Row& row : rows) {
        WifiNetwork network;
        network.setNetworkStatus(row.before);
        setStatusByFlag(network, row.flag);
        EXPECT_EQ(network.getNetworkStatus(), row.after)
            << static_cast<int>(row.flag) << " over " << row.before;
    }
}

} // namespace
