#include "settings/replies/ListLine.h"

#include "model/WifiNetwork.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace platwifi;

namespace {

constexpr const char* ZERO = "00:00:00:00:00:00";
constexpr const char* BSSID = "02:11:22:33:44:55";

TEST(ListLine, HasIdSsidAndBssid) {
    const struct {
        const char* line;
        unsigned int id;
        const char* ssid;
        const char* bssid;
    } rows[] = {
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
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        WifiNetwork network;
        ASSERT_TRUE(readListLine(row.line, network));
        EXPECT_EQ(network.getNetworkId(), row.id);
        EXPECT_STREQ(network.getSsid(), row.ssid);
        EXPECT_STREQ(network.getBssid(), row.bssid);
    }
}

TEST(ListLine, IsOfNoNetworkWithoutItsFields) {
    for (const char* line : {"", "\t", "\t\t\t", "0", "FAIL", "0\t", "0\thome", "0\thome\t"}) {
        WifiNetwork network;
        EXPECT_FALSE(readListLine(line, network)) << line;
    }
}

TEST(ListLine, HasItsFlagAnywhere) {
    const std::map<ListFlag, std::vector<const char*>> lines = {
        {ListFlag::DISABLED,
         {"0\thome\tany\t[DISABLED]", "0\thome\tany\t[CURRENT][DISABLED]",
          "0\tmy [DISABLED] net\tany\t"}},
        {ListFlag::CURRENT, {"0\thome\tany\t[CURRENT]", "0\thome\tany\t[CURRENT][P2P-PERSISTENT]"}},
        {ListFlag::NONE,
         {"0\thome\tany\t[TEMP-DISABLED]", "0\tDISABLED\tany\tCURRENT", "0\thome\tany\t", ""}},
    };
    for (const auto& [flag, linesOfFlag] : lines)
        for (const char* const line : linesOfFlag)
            EXPECT_EQ(listFlagIn(line), flag) << line;
}

// LOAD-22
TEST(ListLine, ItsFlagGivesTheStatus) {
    for (const unsigned int before :
         {NETWORK_STATUS_UNKNOWN, NETWORK_STATUS_CONNECTED, NETWORK_STATUS_DISABLED}) {
        const auto statusAfter = [=](ListFlag flag) {
            WifiNetwork network;
            network.setNetworkStatus(before);
            setStatusByFlag(network, flag);
            return network.getNetworkStatus();
        };
        SCOPED_TRACE(before);
        const bool isConnected = before == NETWORK_STATUS_CONNECTED;
        EXPECT_EQ(statusAfter(ListFlag::DISABLED), NETWORK_STATUS_DISABLED);
        EXPECT_EQ(statusAfter(ListFlag::NONE), NETWORK_STATUS_ENABLED);
        EXPECT_EQ(statusAfter(ListFlag::CURRENT),
                  isConnected ? NETWORK_STATUS_CONNECTED : NETWORK_STATUS_CONNECTING);
    }
}

// A status refresh takes the number that a line begins with; a blank ends it as a tab does.
TEST(ListLine, BeginsWithAnId) {
    const std::map<std::string, int> ids = {
        {"0\thome\tany\t[CURRENT]", 0},
        {"7\thome net\tany\t", 7},
        {"7 home", 7},
        {" \t 7 \t", 7},
        {"\t\t12\tany", 12},
        {"   \t3\thome", 3},
        {"256\thome\tany\t", 256},
        {"-1\thome\tany\t", -1},
        {"- 1\thome", 0},
        {"FAIL", 0},
        {"home\t5", 0},
        {std::string(255, ' ') + "12", 1}, // 256 characters are read
    };
    for (const auto& [line, id] : ids)
        EXPECT_EQ(listedId(line), id) << line;
}

TEST(ListLine, HasNoIdWhereItIsBlank) {
    for (const std::string& line :
         {std::string(), std::string("\t\t"), std::string(" \t  \t"), std::string(256, ' ') + "7"})
        EXPECT_FALSE(listedId(line)) << line;
}

TEST(ListedSsid, IsReadFromALine) {
    const struct {
        const char* line;
        int id; // -1: none
        const char* printed;
    } rows[] = {
        {"0\thome\tany\t[CURRENT]", 0, "home"},
        {"255\thome\t02:00:00:00:01:00\t", 255, "home"},
        {"7\thome\tany", 7, "home"},
        {"7\thome", 7, "home"},
        {"0\t\tany\t[DISABLED]", 0, ""},
        {"0\tany\t[CURRENT]", 0, ""},
        {"0\t02:00:00:00:01:00\t[CURRENT]", 0, ""},
        {"0\tany\tany\t", 0, "any"},
        {"0\tmy:net\tany\t", 0, "my:net"},
        {"0\t two words \tany\t", 0, " two words "},
        {"0\tcaf\\xc3\\xa9\tany\t", 0, "caf\\xc3\\xa9"},
        {"256\thome\tany\t", -1, "home"},
        {"4294967296\thome\tany\t", -1, "home"},
        {"-1\thome\tany\t", -1, "home"},
        {"0x1\thome\tany\t", -1, "home"},
        {"\thome\tany\t", -1, "home"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const auto network = listedSsid(row.line);
        ASSERT_TRUE(network);
        EXPECT_EQ(network->id ? *network->id : -1, row.id);
        EXPECT_EQ(network->printed, row.printed);
    }
}

TEST(ListedSsid, IsNotReadFromALineWithoutColumns) {
    for (const char* const line : {"FAIL", "0", "0 home", ""})
        EXPECT_FALSE(listedSsid(line)) << line;
}

} // namespace
