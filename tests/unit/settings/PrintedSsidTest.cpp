#include "settings/replies/PrintedSsid.h"

#include <gtest/gtest.h>

#include <string>

using platwifi::printedSsid;

namespace {

TEST(PrintedSsid, HasEscapes) {
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

} // namespace
