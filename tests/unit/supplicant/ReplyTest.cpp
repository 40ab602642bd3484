#include "supplicant/Reply.h"

#include "supplicant/WifiUtil.h"

#include <gtest/gtest.h>

#include <string>

using namespace platwifi;

namespace {

// REPLY-1
TEST(ReplyCheck, FindsRefusalsInTheLine) {
    const struct {
        const char* line;
        bool accepted;
    } rows[] = {
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
    for (const auto& row : rows)
        EXPECT_EQ(isAccepted(row.line), row.accepted) << row.line;
}

TEST(ReplyQuotes, AreStrippedAtTheLastQuoteAndTheFirstCharacter) {
    const struct {
        const char* line;
        const char* value;
    } rows[] = {
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
    for (const auto& row : rows) {
        std::string text = row.line;
        stripQuotes(text.data());
        EXPECT_STREQ(text.c_str(), row.value) << row.line;
    }
}

// REPLY-6
TEST(StatusReply, HasAStateWithAFixedNumber) {
    const struct {
        const char* line;
        WpaState state;
        unsigned int number;
    } rows[] = {
        {"wpa_state=INACTIVE", WPA_STATE_IDLE, 2},
        {"wpa_state=SCANNING", WPA_STATE_SCANNING, 3},
        {"wpa_state=COMPLETED", WPA_STATE_COMPLETED, 8},
        {"wpa_state=4WAY_HANDSHAKE", WPA_STATE_4WAY_HANDSHAKE, 6},
        {"wpa_state=GROUP_HANDSHAKE", WPA_STATE_GROUP_HANDSHAKE, 7},
        {"wpa_state=ASSOCIATING", WPA_STATE_ASSOCIATING, 4},
        {"wpa_state=ASSOCIATED", WPA_STATE_ASSOCIATED, 5},
        {"wpa_state=DISCONNECTED", WPA_STATE_DISCONNECTED, 1},
        {"wpa_state=INTERFACE_DISABLED", WPA_STATE_UNKNOWN, 0},
        {"wpa_state=AUTHENTICATING", WPA_STATE_UNKNOWN, 0},
        {"wpa_state=", WPA_STATE_UNKNOWN, 0},
        {"state=COMPLETED", WPA_STATE_UNKNOWN, 0},
        {"ssid=COMPLETED", WPA_STATE_UNKNOWN, 0},
        // Two names: their order in the line does not matter.
        {"wpa_state=SCANNING INACTIVE", WPA_STATE_IDLE, 2},
        {"wpa_state=COMPLETED SCANNING", WPA_STATE_SCANNING, 3},
        {"wpa_state=4WAY_HANDSHAKE COMPLETED", WPA_STATE_COMPLETED, 8},
        {"wpa_state=GROUP_HANDSHAKE 4WAY_HANDSHAKE", WPA_STATE_4WAY_HANDSHAKE, 6},
        {"wpa_state=ASSOCIATING GROUP_HANDSHAKE", WPA_STATE_GROUP_HANDSHAKE, 7},
        {"wpa_state=ASSOCIATED ASSOCIATING", WPA_STATE_ASSOCIATING, 4},
        {"wpa_state=DISCONNECTED ASSOCIATED", WPA_STATE_ASSOCIATED, 5},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(stateOf(&row.line, 1), row.state) << row.line;
        EXPECT_EQ(row.state, row.number) << row.line;
    }
    EXPECT_EQ(stateOf(nullptr, 0), WPA_STATE_UNKNOWN);
}

TEST(StatusReply, UsesTheFirstLineWithAState) {
    const char* const lines[] = {"bssid=02:00:00:00:01:00", nullptr, "x wpa_state=SCANNING",
                                 "wpa_state=COMPLETED"};
    EXPECT_EQ(stateOf(lines, 4), WPA_STATE_SCANNING);
    const char* const unknownFirst[] = {"wpa_state=ODD", "wpa_state=COMPLETED"};
    EXPECT_EQ(stateOf(unknownFirst, 2), WPA_STATE_UNKNOWN);
}

TEST(IgnoreTimestamp, RemovesTheTextUpToTheThirdColonAndOneMoreCharacter) {
    const struct {
        const char* line;
        const char* left;
        bool removed;
    } rows[] = {
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
    for (const auto& row : rows) {
        std::string line = row.line;
        EXPECT_EQ(WifiUtil::ignoreTimestamp(line.data()), row.removed) << row.line;
        EXPECT_STREQ(line.c_str(), row.left) << row.line;
    }
    EXPECT_FALSE(WifiUtil::ignoreTimestamp(nullptr));
}

} // namespace
