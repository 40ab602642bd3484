#include "settings/replies/ListedSsid.h"

#include <gtest/gtest.h>

#include <string>

using platwifi::listedSsid;
using platwifi::printedSsid;

namespace {

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
        int id; // -1: none that could be used
        const char* printed;
    };
    const Row rows[] = {
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
    for (const Row& row : rows) {
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
