#include "settings/replies/StatusLine.h"

#include <gtest/gtest.h>

using namespace platwifi;

namespace {

TEST(StatusLine, IsOfTheFirstKindInOrder) {
    struct Row {
        const char* line;
        StatusLine kind;
    };
    const Row rows[] = {
        {"bssid=02:00:00:00:01:00", StatusLine::OTHER},
        {"ssid=lab-psk", StatusLine::SSID},
        {"id=0", StatusLine::OTHER},
        {"ip_address=10.0.0.1", StatusLine::OTHER},
        {"group_cipher=CCMP", StatusLine::OTHER},
        {"pairwise_cipher=CCMP", StatusLine::OTHER},
        {"key_mgmt=WPA2-PSK", StatusLine::OTHER},
        {"wpa_state=COMPLETED", StatusLine::STATE},
        {"freq=2412", StatusLine::OTHER},
        {"uuid=362db47b-a53a-5191-88fb-5458b986b2e4", StatusLine::OTHER},
        {"Supplicant PAE state=AUTHENTICATED", StatusLine::OTHER},
        {"FAIL", StatusLine::OTHER},
        {"", StatusLine::OTHER},
        // anywhere in the line
        {"12:34:56.789: ssid=lab", StatusLine::SSID},
        {"x wpa_state=COMPLETED", StatusLine::STATE},
        // two of them in one line
        {"ssid=bssid=x", StatusLine::OTHER},
        {"ssid=id=1", StatusLine::SSID},
        {"wpa_state=ssid=x", StatusLine::SSID},
        {"wpa_state=COMPLETED id=1", StatusLine::OTHER},
        {"wpa_state=COMPLETED ip_address=1", StatusLine::OTHER},
        {"wpa_state=COMPLETED group_cipher=1", StatusLine::OTHER},
        {"wpa_state=COMPLETED pairwise_cipher=1", StatusLine::OTHER},
        {"wpa_state=COMPLETED key_mgmt=1", StatusLine::OTHER},
    };
    for (const Row& row : rows)
        EXPECT_EQ(kindOf(row.line), row.kind) << row.line;
}

TEST(StatusLine, ItsValueFollowsTheFirstEqualsSign) {
    EXPECT_STREQ(statusValue("ssid=lab-psk"), "lab-psk");
    EXPECT_STREQ(statusValue("ssid=a=b"), "a=b");
    EXPECT_STREQ(statusValue("x=1 ssid=lab"), "1 ssid=lab");
    EXPECT_STREQ(statusValue("ssid="), "");
    EXPECT_STREQ(statusValue("FAIL"), "");
}

} // namespace
