#include "settings/ListedSsid.h"

#include "supplicant/ReplyLines.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using platwifi::ListedSsid;
using platwifi::listedSsids;
using platwifi::printedSsid;

namespace {

// In pieces of 127 characters, as the query hands them back.
std::vector<ListedSsid> listed(const std::vector<std::string>& lines) {
    platwifi::ReplyLines reply(255);
    for (const std::string& line : lines)
        for (std::size_t at = 0; at < line.size(); at += 127) {
            const std::string piece = line.substr(at, 127);
            char* const copy = new char[piece.size() + 1];
            std::memcpy(copy, piece.c_str(), piece.size() + 1);
            reply.data()[reply.count++] = copy;
        }
    return listedSsids(reply);
}

TEST(ListedSsid, IsPrintedWithEscapes) {
    struct Row {
        std::string ssid;
        const char* printed;
    };
    const Row rows[] = {
        {"", ""},
        {"home", "home"},
        {" ~!#\x7e", " ~!#~"},
        {"a\"b\\c", "a\\\"b\\\\c"},
        {"\x1b\n\r\t", "\\e\\n\\r\\t"},
        {"\x01\x1f\x7f", "\\x01\\x1f\\x7f"},
        {"caf\xc3\xa9", "caf\\xc3\\xa9"},
        {"\xff\xe9", "\\xff\\xe9"},
        {"\xf0\x9f\x98\x80", "\\xf0\\x9f\\x98\\x80"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printedSsid(row.ssid), row.printed);
}

TEST(ListedSsid, IsReadFromALine) {
    struct Row {
        const char* line;
        int number; // -1: names no network
        const char* printed;
        bool isUnnamed;
    };
    const Row rows[] = {
        {"0\thome\tany\t[CURRENT]", 0, "home", false},
        {"255\thome\t02:00:00:00:01:00\t", 255, "home", false},
        {"7\thome\tany", 7, "home", false},
        {"7\thome", 7, "home", false},
        {"0\t\tany\t[DISABLED]", 0, "", true},
        {"0\tany\t[CURRENT]", 0, "", true},
        {"0\t02:00:00:00:01:00\t[CURRENT]", 0, "", true},
        {"0\tany\tany\t", 0, "any", true},
        {"0\tmy:net\tany\t", 0, "my:net", true},
        {"0\t two words \tany\t", 0, " two words ", false},
        {"256\thome\tany\t", -1, "", false},
        {"4294967296\thome\tany\t", -1, "", false},
        {"-1\thome\tany\t", -1, "", false},
        {"0x1\thome\tany\t", -1, "", false},
        {"\thome\tany\t", -1, "", false},
        {"FAIL", -1, "", false},
        {"0", -1, "", false},
        {"0 home", -1, "", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        const std::vector<ListedSsid> networks = listed({row.line});
        ASSERT_EQ(networks.size(), row.number < 0 ? 0U : 1U);
        if (row.number < 0)
            continue;
        EXPECT_EQ(networks[0].number, row.number);
        EXPECT_EQ(networks[0].printed, row.printed);
        EXPECT_EQ(networks[0].isUnnamed, row.isUnnamed);
    }
}

// The longest SSID has 32 bytes, 128 characters when each is an escape.
TEST(ListedSsid, IsReadFromALineInPieces) {
    for (std::size_t length = 20; length <= 32; ++length)
        for (const char* const rest : {"\tany\t[CURRENT]", "\t02:00:00:00:01:00\t[DISABLED]"}) {
            SCOPED_TRACE(length);
            const std::string ssid(length, '\xd0');
            const std::vector<ListedSsid> networks =
                listed({"10\t" + printedSsid(ssid) + rest, "11\thome\tany\t"});
            ASSERT_EQ(networks.size(), 2U);
            EXPECT_TRUE(networks[0].isOf(ssid));
            EXPECT_EQ(networks[0].number, 10);
            EXPECT_TRUE(networks[1].isOf("home"));
        }
}

TEST(ListedSsid, IsReadFromALineThatIsJustAsLongAsAPiece) {
    const std::string ssid = std::string(27, '\xd0') + "xy";
    const std::string line = "10\t" + printedSsid(ssid) + "\tany\t[CURRENT]";
    ASSERT_EQ(line.size(), 127U);
    const std::vector<ListedSsid> networks = listed({line, "11\thome\tany\t"});
    ASSERT_EQ(networks.size(), 2U);
    EXPECT_TRUE(networks[0].isOf(ssid));
    EXPECT_TRUE(networks[1].isOf("home"));
}

TEST(ListedSsid, IsThatOfANetworkInMemory) {
    struct Row {
        const char* line;
        const char* ssid;
        bool isOf;
    };
    const Row rows[] = {
        {"0\thome\tany\t", "home", true},
        {"0\thome\tany\t", "Home", false},
        {"0\thome\tany\t", "hom", false},
        {"0\thome\tany\t", "home2", false},
        {"0\tcaf\\xc3\\xa9\tany\t", "caf\xc3\xa9", true},   // as it was added
        {"0\tcaf\\xc3\\xa9\tany\t", "caf\\xc3\\xa9", true}, // as it was loaded
        {"0\tcaf\\xc3\\xa9\tany\t", "caf\xe9", false},
        {"0\ta\\\\b\tany\t", "a\\b", true},
        {"0\ta\\\\b\tany\t", "a\\\\b", true},
        {"0\t\tany\t[DISABLED]", "SSID N/A", true},
        {"0\tany\t[CURRENT]", "SSID N/A", true},
        {"0\tany\t[CURRENT]", "any", false},
        {"0\tany\tany\t", "any", true},
        {"0\tmy:net\tany\t", "my:net", true},
        {"0\tmy:net\tany\t", "SSID N/A", true}, // loading takes it for a BSSID
        {"0\tSSID N/A\tany\t", "SSID N/A", true},
        {"0\thome\tany\t", "SSID N/A", false},
        {"0\t\tany\t", "", true},
        {"0\thome\tany\t", "", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.line) + " / " + row.ssid);
        EXPECT_EQ(listed({row.line}).at(0).isOf(row.ssid), row.isOf);
    }
}

} // namespace
