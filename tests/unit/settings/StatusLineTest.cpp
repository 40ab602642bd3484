#include "settings/replies/StatusLine.h"

#include <gtest/gtest.h>

using namespace platwifi;

namespace {

struct Read {
    const char* line;
    StatusKind kind;
};

TEST(StatusLine, IsOfTheFirstKindInOrderForALoad) {
    const Read rows[] = {
        {"bssid=02:00:00:00:01:00", StatusKind::OTHER},
        {"ssid=lab-psk", StatusKind::SSID},
        {"id=0", StatusKind::OTHER},
        {"ip_address=10.0.0.1", StatusKind::OTHER},
        {"group_cipher=CCMP", StatusKind::OTHER},
        {"pairwise_cipher=CCMP", StatusKind::OTHER},
        {"key_mgmt=WPA2-PSK", StatusKind::OTHER},
        {"wpa_state=COMPLETED", StatusKind::STATE},
        {"freq=2412", StatusKind::OTHER},
        {"uuid=362db47b-a53a-5191-88fb-5458b986b2e4", StatusKind::OTHER},
        {"Supplicant PAE state=AUTHENTICATED", StatusKind::OTHER},
        {"FAIL", StatusKind::OTHER},
        {"", StatusKind::OTHER},
        // anywhere in the line
        {"12:34:56.789: ssid=lab", StatusKind::SSID},
        {"x wpa_state=COMPLETED", StatusKind::STATE},
        // two of them in one line
        {"ssid=bssid=x", StatusKind::OTHER},
        {"ssid=id=1", StatusKind::SSID},
        {"wpa_state=ssid=x", StatusKind::SSID},
        {"wpa_state=COMPLETED id=1", StatusKind::OTHER},
        {"wpa_state=COMPLETED ip_address=1", StatusKind::OTHER},
        {"wpa_state=COMPLETED group_cipher=1", StatusKind::OTHER},
        {"wpa_state=COMPLETED pairwise_cipher=1", StatusKind::OTHER},
        {"wpa_state=COMPLETED key_mgmt=1", StatusKind::OTHER},
    };
    for (const Read& row : rows)
        EXPECT_EQ(readStatusLine(row.line, StatusReader::LOAD).kind, row.kind) << row.line;
}

TEST(StatusLine, HasItsStateBeforeItsSsidForTheCurrentStatus) {
    const Read rows[] = {
        {"wpa_state=COMPLETED", StatusKind::STATE},
        {"ssid=lab-psk", StatusKind::SSID},
        {"bssid=02:00:00:00:01:00", StatusKind::SSID}, // "ssid=" is a part of it
        {"x ssid=lab", StatusKind::SSID},
        {"x wpa_state=COMPLETED", StatusKind::STATE},
        {"ssid=wpa_state=x", StatusKind::STATE},
        {"wpa_state=COMPLETED id=1", StatusKind::STATE},
        {"ssid=ip_address=1", StatusKind::SSID},
        {"id=0", StatusKind::OTHER},
        {"freq=2412", StatusKind::OTHER},
        {"", StatusKind::OTHER},
    };
    for (const Read& row : rows)
        EXPECT_EQ(readStatusLine(row.line, StatusReader::CURRENT_STATUS).kind, row.kind)
            << row.line;
}

TEST(StatusLine, BeginsWithItsSsidForTheCurrentNetwork) {
    const Read rows[] = {
        {"ssid=lab-psk", StatusKind::SSID},         {"ssid=wpa_state=x", StatusKind::SSID},
        {"ssid=bssid=x", StatusKind::SSID},         {"bssid=02:00:00:00:01:00", StatusKind::OTHER},
        {" ssid=lab-psk", StatusKind::OTHER},       {"SSID=lab-psk", StatusKind::OTHER},
        {"wpa_state=COMPLETED", StatusKind::OTHER}, {"", StatusKind::OTHER},
    };
    for (const Read& row : rows)
        EXPECT_EQ(readStatusLine(row.line, StatusReader::CURRENT_NETWORK).kind, row.kind)
            << row.line;
}

TEST(StatusLine, ItsValueFollowsTheFirstEqualsSign) {
    for (const StatusReader reader :
         {StatusReader::LOAD, StatusReader::CURRENT_STATUS, StatusReader::CURRENT_NETWORK}) {
        const auto valueIn = [=](const char* line) { return readStatusLine(line, reader).value; };
        EXPECT_STREQ(valueIn("ssid=lab-psk"), "lab-psk");
        EXPECT_STREQ(valueIn("ssid=a=b"), "a=b");
        EXPECT_STREQ(valueIn("x=1 ssid=lab"), "1 ssid=lab");
        EXPECT_STREQ(valueIn("ssid="), "");
        EXPECT_STREQ(valueIn("FAIL"), "");
    }
}

} // namespace
