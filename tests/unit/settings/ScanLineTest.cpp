#include "settings/replies/ScanLine.h"

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"

#include <gtest/gtest.h>

#include <string>

using namespace platwifi;

namespace {

// LOAD-19
TEST(ScanChannel, IsThatOfTheFrequency) {
    for (unsigned int channel = 1; channel <= 11; ++channel)
        EXPECT_EQ(channelAt(std::to_string(2407 + 5 * channel).c_str()), channel);
    EXPECT_EQ(channelAt("2462 x"), 11U);
}

// LOAD-19
TEST(ScanChannel, IsSixForAnyOtherFrequency) {
    for (const char* text :
         {"2467", "2472", "2484", "5180", "5825", "2407", "2411", "2413", "2416", "2461", "2463",
          "0", "-2412", "-2147483648", "99999999999", "x2412", "garbage", ""})
        EXPECT_EQ(channelAt(text), 6U) << text;
}

// One step of the scale falls short of its even number when it is cut to an integer.
// LOAD-20
TEST(ScanStrength, IsZeroToHundredFrom160To210) {
    for (unsigned int signal = 160; signal <= 210; ++signal) {
        const unsigned int even = (signal - 160) * 2;
        EXPECT_EQ(strengthOf(std::to_string(signal).c_str()), signal == 189 ? even - 1 : even);
    }
}

// LOAD-20
TEST(ScanStrength, IsFullAboveAndBelowTheScale) {
    for (const char* text : {"211", "255", "2147483647", "99999999999", "159", "120", "1", "0",
                             "-30", "-95", "-2147483648", "-99999999999", "garbage", ""})
        EXPECT_EQ(strengthOf(text), 100U) << text;
}

// A field that is missing ends the line; what stands in front of it counts. Tabs alone separate fields.
TEST(ScanLine, HasBssidChannelStrengthAndMode) {
    const struct {
        const char* line;
        const char* bssid;
        unsigned int channel;
        unsigned int strength;
        unsigned int mode;
    } rows[] = {
        {"02:00:00:00:01:00\t2462\t-30\t[WPA2-PSK-CCMP][ESS]\tlab-psk", "02:00:00:00:01:00", 11,
         100, NETWORK_MODE_MANAGED},
        {"02:00:00:00:01:01\t2417\t185\t[WEP][IBSS]\tlab-psk", "02:00:00:00:01:01", 2, 50,
         NETWORK_MODE_ADHOC},
        {"02:00:00:00:01:01\t2472\t120\tIBSS", "02:00:00:00:01:01", 6, 100, NETWORK_MODE_MANAGED},
        {"", "old", 99, 98, 97},
        {"a:b", "a:b", 99, 98, 97},
        {"a:b\t2412", "a:b", 1, 98, 97},
        {"a:b\t2417\t160\t", "a:b", 2, 0, 97},
        {"a:b\t2422\t161\t[IBSS]", "a:b", 3, 2, NETWORK_MODE_ADHOC},
        {"lab\t2412\t160\tx", "old", 1, 0, NETWORK_MODE_MANAGED}, // the first is no BSSID
        {"a:b 2412 160", "a:b 2412 160", 99, 98, 97},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        WifiNetwork network;
        network.setBssid("old");
        network.setChannel(99);
        network.setStrength(98);
        network.setNetworkMode(97);
        readScanLine(row.line, network);
        EXPECT_STREQ(network.getBssid(), row.bssid);
        EXPECT_EQ(network.getChannel(), row.channel);
        EXPECT_EQ(network.getStrength(), row.strength);
        EXPECT_EQ(network.getNetworkMode(), row.mode);
    }
}

class ScanMerge : public testing::Test {
protected:
    // Adds a network, which the list then owns.
    WifiNetwork& add(const char* ssid) {
        auto* const network = new WifiNetwork;
        network->setSsid(ssid);
        EXPECT_TRUE(list.addNetworkToList(network));
        return *network;
    }

    void merge(const char* line, ScanMatch matches = isWholeLine) {
        mergeScan({"lab-other", line}, list.getHead(), matches);
    }

    WifiNetworkList list;
    WifiNetwork& lab = add("lab");
    WifiNetwork& part = add("a:1\t2412\t185");
    WifiNetwork& whole = add("a:1\t2412\t185\t[IBSS]");
};

TEST_F(ScanMerge, ReadsALineIntoTheNetworkWhoseSsidItIsAsAWhole) {
    merge("a:1\t2412\t185\t[IBSS]");
    EXPECT_STREQ(whole.getBssid(), "a:1");
    EXPECT_EQ(whole.getChannel(), 1U);
    EXPECT_EQ(whole.getStrength(), 50U);
    EXPECT_EQ(whole.getNetworkMode(), NETWORK_MODE_ADHOC);
    EXPECT_STREQ(part.getBssid(), nullptr) << "it is only part of the line";
    EXPECT_STREQ(lab.getBssid(), nullptr);
}

TEST_F(ScanMerge, SkipsLinesThatOnlyContainTheSsid) {
    merge("02:00:00:00:01:00\t2462\t-30\t[ESS]\tlab");
    EXPECT_STREQ(lab.getBssid(), nullptr);
    EXPECT_EQ(lab.getChannel(), 0U);
}

TEST_F(ScanMerge, ReadsALineIntoEveryNetworkThatMatches) {
    merge("b:2\t2417\t185",
          [](const char* line, const char* ssid) { return *line == 'b' && *ssid == 'a'; });
    EXPECT_STREQ(whole.getBssid(), "b:2");
    EXPECT_STREQ(part.getBssid(), "b:2");
    EXPECT_STREQ(lab.getBssid(), nullptr);
}

TEST_F(ScanMerge, SkipsANetworkWithoutSsid) {
    const WifiNetwork& unnamed = add(nullptr);
    merge("b:2\t2417\t185", [](const char*, const char* ssid) { return *ssid != '\0'; });
    EXPECT_STREQ(unnamed.getBssid(), nullptr);
    EXPECT_STREQ(whole.getBssid(), "b:2");
}

} // namespace
