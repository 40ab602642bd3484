#include "host/ScanResult.h"

#include <gtest/gtest.h>

using namespace cli;

namespace {

TEST(AScanResult, IsReadFromALineOfTheClient) {
    const auto result =
        ScanResult::of("02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\tupstairs");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->bssid, "02:00:00:00:01:00");
    EXPECT_EQ(result->frequency, 2412);
    EXPECT_EQ(result->signal, -30);
    EXPECT_EQ(result->flags, "[WPA2-PSK-CCMP][ESS]");
    EXPECT_EQ(result->ssid, "upstairs");
}

TEST(AScanResult, MayHaveNoSsidAndNoFlags) {
    const auto hidden = ScanResult::of("02:00:00:00:02:00\t5180\t-71\t\t");
    ASSERT_TRUE(hidden);
    EXPECT_EQ(hidden->ssid, "");
    EXPECT_EQ(hidden->flags, "");
}

TEST(AScanResult, KeepsTabsOfTheSsid) {
    EXPECT_EQ(ScanResult::of("b\t1\t2\tf\ta\tb")->ssid, "a\tb");
}

TEST(AScanResult, IsNotReadFromAnyOtherLine) {
    for (const char* line : {"", "FAIL", "bssid / frequency / signal level / flags / ssid",
                             "02:00:00:00:01:00\t2412\t-30\t[ESS]"})
        EXPECT_FALSE(ScanResult::of(line)) << line;
}

TEST(TheChannel, IsThatOfTheFrequency) {
    struct {
        int frequency;
        int channel;
    } const rows[] = {{2412, 1},   {2437, 6}, {2472, 13},  {2484, 14}, {5180, 36},
                      {5885, 177}, {5955, 1}, {7115, 233}, {2400, 0},  {2477, 0},
                      {0, 0},      {-1, 0},   {4000, 0},   {60480, 0}, {5160, 32}};
    for (const auto& row : rows)
        EXPECT_EQ(channelOf(row.frequency), row.channel) << row.frequency;
}

TEST(TheChannel, IsAtAFrequencyOfARaster) {
    EXPECT_EQ(channelOf(2413), 0);
    EXPECT_EQ(channelOf(5895), 179);
    EXPECT_EQ(channelOf(5900), 0);
    EXPECT_EQ(channelOf(5935), 2);
}

TEST(TheBand, IsThatOfTheChannel) {
    struct {
        int frequency;
        const char* band;
    } const rows[] = {{2412, "2.4 GHz"}, {2472, "2.4 GHz"}, {2484, "2.4 GHz"}, {5180, "5 GHz"},
                      {5895, "5 GHz"},   {5935, "6 GHz"},   {5955, "6 GHz"},   {7115, "6 GHz"},
                      {2413, ""},        {0, ""},           {-5, ""},          {60480, ""}};
    for (const auto& row : rows)
        EXPECT_EQ(bandOf(row.frequency), row.band) << row.frequency;
}

TEST(TheSecurity, IsShownInWords) {
    struct {
        const char* flags;
        const char* words;
    } const rows[] = {
        {"[ESS]", "open"},
        {"", "open"},
        {"[WEP][ESS]", "WEP"},
        {"[WPA-PSK-TKIP][ESS]", "WPA-PSK"},
        {"[WPA2-PSK-CCMP][ESS]", "WPA2-PSK"},
        {"[WPA-PSK-CCMP+TKIP][WPA2-PSK-CCMP+TKIP][WPS][ESS]", "WPA-PSK/WPA2-PSK"},
        {"[WPA2-PSK-CCMP][WPA2-PSK-CCMP-preauth][ESS]", "WPA2-PSK"},
        {"[WPA2-EAP-CCMP][ESS]", "WPA2-Enterprise"},
        {"[WPA-EAP-TKIP][ESS]", "WPA-Enterprise"},
        {"[WPA2-SAE-CCMP][ESS]", "WPA3-SAE"},
        {"[WPA2-PSK+SAE-CCMP][ESS]", "WPA2-PSK/WPA3-SAE"},
        {"[RSN-SAE-CCMP]", "WPA3-SAE"},
        {"[WPA2-OWE-CCMP][ESS]", "OWE"},
        {"[WPA2-PSK-SHA256-CCMP][ESS]", "WPA2-PSK-SHA256"},
        {"[WPA2-PSK+PSK-SHA256-CCMP][ESS]", "WPA2-PSK/WPA2-PSK-SHA256"},
        {"[WPA2-PSK+FT/PSK-CCMP][ESS]", "WPA2-PSK/FT-PSK"},
        {"[WPA2-SAE+FT/SAE-CCMP][SAE-H2E][ESS]", "WPA3-SAE/FT-SAE"},
        {"[WPA2-SAE-EXT-KEY-GCMP-256][ESS]", "WPA3-SAE"},
        {"[WPA2-EAP+FT/EAP-CCMP][ESS]", "WPA2-Enterprise/FT-Enterprise"},
        {"[WPA2-EAP-SHA256-CCMP][ESS]", "WPA2-Enterprise-SHA256"},
        {"[WPA2-EAP-SUITE-B-192-GCMP-256][ESS]", "WPA3-Enterprise-192"},
        {"[WPA2-EAP-SUITE-B-GCMP][ESS]", "WPA2-Enterprise-Suite-B"},
        {"[WPA2-FT/EAP-SHA384-GCMP-256][ESS]", "FT-Enterprise"},
        {"[WPA2-EAP+FILS-SHA256-CCMP][ESS]", "WPA2-Enterprise/FILS"},
        {"[WPA2-OWE-CCMP][OWE-TRANS][ESS]", "OWE"},
        {"[OWE-TRANS-OPEN][ESS]", "OWE-transition"},
        {"[WPA2-DPP-CCMP][ESS]", "DPP"},
        {"[WPA2-UNHEARD-OF-CCMP][ESS]", "WPA2"},
        {"[WPA-TKIP][WPA2-PSK-CCMP][ESS]", "WPA/WPA2-PSK"},
        {"[WPA2-PSK-CCMP", "WPA2-PSK"},
        {"]]WEP[[", "open"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(securityOf(row.flags), row.words) << row.flags;
}

} // namespace
