#include "supplicant/WifiUtil.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

TEST(IgnoreTimestamp, RemovesTheTextUpToTheThirdColonAndOneMoreCharacter) {
    struct Row {
        const char* line;
        const char* left;
        bool removed;
    };
    const Row rows[] = {
        {"12:34:56.789: wlan0", "wlan0", true},
        {"12:34:56.789: bssid=00:11:22:33:44:55", "bssid=00:11:22:33:44:55", true},
        {"bssid=02:00:00:00:01:00", "0:01:00", true},
        {":::x", "", true},
        {"::: x", "x", true},
        {"a:b:c:dx", "x", true},
        {"a:b:c:d", "", true},
        {"a:b:c:", "a:b:c:", false},
        {"a:b", "a:b", false},
        {"a:b:c", "a:b:c", false},
        {"wlan0", "wlan0", false},
        {":::", ":::", false},
        {"", "", false},
    };
    for (const Row& row : rows) {
        char line[64];
        std::snprintf(line, sizeof(line), "%s", row.line);
        EXPECT_EQ(WifiUtil::ignoreTimestamp(line), row.removed) << row.line;
        EXPECT_STREQ(line, row.left) << row.line;
    }
}

TEST(IgnoreTimestamp, FailsForNull) {
    EXPECT_FALSE(WifiUtil::ignoreTimestamp(nullptr));
}

} // namespace
