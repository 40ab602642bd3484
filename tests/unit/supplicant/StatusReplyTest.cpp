#include "supplicant/Reply.h"

#include <gtest/gtest.h>

using namespace platwifi;

namespace {

WpaState stateOfLine(const char* line) {
    return stateOf(&line, 1);
}

// REPLY-6
TEST(StatusReply, RecognisesEveryState) {
    struct Row {
        const char* line;
        WpaState state;
    };
    const Row rows[] = {
        {"wpa_state=INACTIVE", WPA_STATE_IDLE},
        {"wpa_state=SCANNING", WPA_STATE_SCANNING},
        {"wpa_state=COMPLETED", WPA_STATE_COMPLETED},
        {"wpa_state=4WAY_HANDSHAKE", WPA_STATE_4WAY_HANDSHAKE},
        {"wpa_state=GROUP_HANDSHAKE", WPA_STATE_GROUP_HANDSHAKE},
        {"wpa_state=ASSOCIATING", WPA_STATE_ASSOCIATING},
        {"wpa_state=ASSOCIATED", WPA_STATE_ASSOCIATED},
        {"wpa_state=DISCONNECTED", WPA_STATE_DISCONNECTED},
        {"wpa_state=INTERFACE_DISABLED", WPA_STATE_UNKNOWN},
        {"wpa_state=AUTHENTICATING", WPA_STATE_UNKNOWN},
        {"wpa_state=", WPA_STATE_UNKNOWN},
        {"state=COMPLETED", WPA_STATE_UNKNOWN},
    };
    for (const Row& row : rows)
        EXPECT_EQ(stateOfLine(row.line), row.state) << row.line;
}

// REPLY-6
TEST(StatusReply, SearchesTheNamesInAFixedOrder) {
    EXPECT_EQ(stateOfLine("wpa_state=SCANNING INACTIVE"), WPA_STATE_IDLE);
    EXPECT_EQ(stateOfLine("wpa_state=COMPLETED SCANNING"), WPA_STATE_SCANNING);
    EXPECT_EQ(stateOfLine("wpa_state=4WAY_HANDSHAKE COMPLETED"), WPA_STATE_COMPLETED);
    EXPECT_EQ(stateOfLine("wpa_state=GROUP_HANDSHAKE 4WAY_HANDSHAKE"), WPA_STATE_4WAY_HANDSHAKE);
    EXPECT_EQ(stateOfLine("wpa_state=ASSOCIATING GROUP_HANDSHAKE"), WPA_STATE_GROUP_HANDSHAKE);
    EXPECT_EQ(stateOfLine("wpa_state=ASSOCIATED ASSOCIATING"), WPA_STATE_ASSOCIATING);
    EXPECT_EQ(stateOfLine("wpa_state=DISCONNECTED ASSOCIATED"), WPA_STATE_ASSOCIATED);
}

TEST(StatusReply, UsesTheFirstLineWithAState) {
    const char* const lines[] = {"bssid=02:00:00:00:01:00", nullptr, "x wpa_state=SCANNING",
                                 "wpa_state=COMPLETED"};
    EXPECT_EQ(stateOf(lines, 4), WPA_STATE_SCANNING);
    const char* const unknownFirst[] = {"wpa_state=ODD", "wpa_state=COMPLETED"};
    EXPECT_EQ(stateOf(unknownFirst, 2), WPA_STATE_UNKNOWN);
}

TEST(StatusReply, IsUnknownWithoutAStateLine) {
    EXPECT_EQ(stateOf(nullptr, 0), WPA_STATE_UNKNOWN);
    EXPECT_EQ(stateOfLine("ssid=COMPLETED"), WPA_STATE_UNKNOWN);
}

TEST(StatusReply, HasFixedNumbersForTheStates) {
    EXPECT_EQ(WPA_STATE_UNKNOWN, 0U);
    EXPECT_EQ(WPA_STATE_DISCONNECTED, 1U);
    EXPECT_EQ(WPA_STATE_IDLE, 2U);
    EXPECT_EQ(WPA_STATE_SCANNING, 3U);
    EXPECT_EQ(WPA_STATE_ASSOCIATING, 4U);
    EXPECT_EQ(WPA_STATE_ASSOCIATED, 5U);
    EXPECT_EQ(WPA_STATE_4WAY_HANDSHAKE, 6U);
    EXPECT_EQ(WPA_STATE_GROUP_HANDSHAKE, 7U);
    EXPECT_EQ(WPA_STATE_COMPLETED, 8U);
}

} // namespace
