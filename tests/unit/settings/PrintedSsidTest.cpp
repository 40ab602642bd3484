#include "settings/replies/PrintedSsid.h"

#include <gtest/gtest.h>

#include <string>

using platwifi::bytesOfPrinted;
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

TEST(PrintedSsid, IsReadBack) {
    struct Row {
        const char* printed;
        std::string ssid;
    };
    const Row rows[] = {
        {"home", "home"},
        {R"(caf\xc3\xa9)", "caf\xc3\xa9"},
        {R"(CAF\xC3\x89)", "CAF\xc3\x89"},
        {R"(a\\b)", R"(a\b)"},
        {R"(say \"hi\")", R"(say "hi")"},
        {R"(\e[0m)", "\033[0m"},
        {R"(a\nb\rc\td)", "a\nb\rc\td"},
        {R"(\\x41)", R"(\x41)"},
        {R"(\x00)", std::string(1, '\0')},
        {R"(\)", R"(\)"},
        {R"(a\)", R"(a\)"},
        {R"(\x)", R"(\x)"},
        {R"(\x4)", R"(\x4)"},
        {R"(\x4g)", R"(\x4g)"},
        {R"(\q)", R"(\q)"},
        {"", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(bytesOfPrinted(row.printed), row.ssid) << row.printed;
}

} // namespace
