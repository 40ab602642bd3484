#include "settings/replies/StatusLine.h"

#include <gtest/gtest.h>

using namespace platwifi;

namespace {

constexpr StatusKind OTHER = StatusKind::OTHER;
constexpr StatusKind SSID = StatusKind::SSID;
constexpr StatusKind STATE = StatusKind::STATE;

TEST(StatusLine, IsOfOneKindForEachReader) {
    const struct {
        const char* line;
        StatusKind load;
        StatusKind currentStatus;
        StatusKind currentNetwork;
    } rows[] = {
        {"bssid=02:00:00:00:01:00", OTHER, SSID, OTHER}, // "ssid=" is a part of it
        {"ssid=lab-psk", SSID, SSID, SSID},
        {"id=0", OTHER, OTHER, OTHER},
        {"ip_address=10.0.0.1", OTHER, OTHER, OTHER},
        {"group_cipher=CCMP", OTHER, OTHER, OTHER},
        {"pairwise_cipher=CCMP", OTHER, OTHER, OTHER},
        {"key_mgmt=WPA2-PSK", OTHER, OTHER, OTHER},
        {"wpa_state=COMPLETED", STATE, STATE, OTHER},
        {"freq=2412", OTHER, OTHER, OTHER},
        {"uuid=362db47b-a53a-5191-88fb-5458b986b2e4", OTHER, OTHER, OTHER},
        {"Supplicant PAE state=AUTHENTICATED", OTHER, OTHER, OTHER},
        {"SSID=lab-psk", OTHER, OTHER, OTHER},
        {"FAIL", OTHER, OTHER, OTHER},
        {"", OTHER, OTHER, OTHER},
        // not at the start of the line
        {" ssid=lab-psk", SSID, SSID, OTHER},
        {"12:34:56.789: ssid=lab", SSID, SSID, OTHER},
        {"x wpa_state=COMPLETED", STATE, STATE, OTHER},
        // two of them in one line
        {"ssid=bssid=x", OTHER, SSID, SSID},
        {"ssid=id=1", SSID, SSID, SSID},
        {"ssid=ip_address=1", SSID, SSID, SSID},
        {"ssid=wpa_state=x", SSID, STATE, SSID},
        {"wpa_state=ssid=x", SSID, STATE, OTHER},
        {"wpa_state=COMPLETED id=1", OTHER, STATE, OTHER},
        {"wpa_state=COMPLETED ip_address=1", OTHER, STATE, OTHER},
        {"wpa_state=COMPLETED group_cipher=1", OTHER, STATE, OTHER},
        {"wpa_state=COMPLETED pairwise_cipher=1", OTHER, STATE, OTHER},
        {"wpa_state=COMPLETED key_mgmt=1", OTHER, STATE, OTHER},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(readStatusLine(row.line, StatusReader::LOAD).kind, row.load);
        EXPECT_EQ(readStatusLine(row.line, StatusReader::CURRENT_STATUS).kind, row.currentStatus);
        EXPECT_EQ(readStatusLine(row.line, StatusReader::CURRENT_NETWORK).kind, row.currentNetwork);
    }
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
