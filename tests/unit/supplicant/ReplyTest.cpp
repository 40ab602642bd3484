#include "supplicant/Reply.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace platwifi;

namespace {

// REPLY-1
TEST(ReplyCheck, FindsRefusalsInTheLine) {
    struct Row {
        const char* line;
        bool accepted;
    };
    const Row rows[] = {
        {"OK", true},
        {"3", true},
        {"\"home\"", true},
        {"", false},
        {"FAIL", false},
        {"FAIL-BUSY", false},
        {"it did FAIL somehow", false},
        {"Invalid SET_NETWORK command: needs three arguments", false},
        {"an Invalid thing", false},
        {"fail", true},
        {"invalid", true},
        {"UNKNOWN COMMAND", true},
    };
    for (const Row& row : rows)
        EXPECT_EQ(isAccepted(row.line), row.accepted) << row.line;
}

TEST(ReplyQuotes, AreStrippedAtTheLastQuoteAndTheFirstCharacter) {
    struct Row {
        const char* line;
        const char* value;
    };
    const Row rows[] = {
        {"\"home\"", "home"},
        {"WPA-PSK", "WPA-PSK"},
        {"", ""},
        {"\"\"", ""},
        {"\"", ""},
        {"a\"b", ""},
        {"ab\"c", "b"},
        {"\"say \"hi\" twice\"", "say \"hi\" twice"},
        {"\"open only", ""},
        {"\"tail\" after", "tail"},
    };
    for (const Row& row : rows) {
        char text[64];
        std::snprintf(text, sizeof(text), "%s", row.line);
        stripQuotes(text);
        EXPECT_STREQ(text, row.value) << row.line;
    }
}

} // namespace
