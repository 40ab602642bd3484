#include "settings/replies/ScanLine.h"

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace platwifi;

namespace {

struct Conversion {
    const char* text;
    unsigned int number;
};

// LOAD-19
TEST(ScanChannel, IsThatOfTheFrequency) {
    const Conversion rows[] = {
        {"2412", 1}, {"2417", 2}, {"2422", 3}, {"2427", 4},  {"2432", 5},  {"2437", 6},
        {"2442", 7}, {"2447", 8}, {"2452", 9}, {"2457", 10}, {"2462", 11}, {"2462 x", 11},
    };
    for (const Conversion& row : rows)
        EXPECT_EQ(channelAt(row.text), row.number) << row.text;
}

// LOAD-19
TEST(ScanChannel, IsSixForAnyOtherFrequency) {
    for (const char* text :
         {"2467", "2472", "2484", "5180", "5825", "2407", "2411", "2413", "2416", "2461", "2463",
          "0", "-2412", "-2147483648", "99999999999", "x2412", "garbage", ""})
        EXPECT_EQ(channelAt(text), 6U) << text;
}

// LOAD-20
TEST(ScanStrength, IsZeroToHundredFrom160To210) {
    const Conversion rows[] = {
        {"160", 0},  {"161", 2},  {"165", 10}, {"170", 20}, {"173", 26}, {"180", 40}, {"184", 48},
        {"185", 50}, {"186", 52}, {"189", 57}, {"190", 60}, {"200", 80}, {"209", 98}, {"210", 100},
    };
    for (const Conversion& row : rows)
        EXPECT_EQ(strengthOf(row.text), row.number) << row.text;
}

// One step of the scale falls short of its even number when it is cut to an integer.
TEST(ScanStrength, RisesByTwoAStep) {
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

class ScanLine : public testing::Test {
protected:
    ScanLine() {
        network.setBssid("old");
        network.setChannel(99);
        network.setStrength(98);
        network.setNetworkMode(97);
    }

    void expect(const char* bssid, unsigned int channel, unsigned int strength, unsigned int mode) {
        EXPECT_STREQ(network.getBssid(), bssid);
        EXPECT_EQ(network.getChannel(), channel);
        EXPECT_EQ(network.getStrength(), strength);
        EXPECT_EQ(network.getNetworkMode(), mode);
    }

    WifiNetwork network;
};

TEST_F(ScanLine, TellsBssidChannelStrengthAndMode) {
    readScanLine("02:00:00:00:01:00\t2462\t-30\t[WPA2-PSK-CCMP][ESS]\tlab-psk", network);
    expect("02:00:00:00:01:00", 11, 100, NETWORK_MODE_MANAGED);
    readScanLine("02:00:00:00:01:01\t2417\t185\t[WEP][IBSS]\tlab-psk", network);
    expect("02:00:00:00:01:01", 2, 50, NETWORK_MODE_ADHOC);
    readScanLine("02:00:00:00:01:01\t2472\t120\tIBSS", network);
    expect("02:00:00:00:01:01", 6, 100, NETWORK_MODE_MANAGED);
}

TEST_F(ScanLine, StopsAtTheFirstMissingField) {
    readScanLine("", network);
    expect("old", 99, 98, 97);
    readScanLine("a:b", network);
    expect("a:b", 99, 98, 97);
    readScanLine("c:d\t2412", network);
    expect("c:d", 1, 98, 97);
    readScanLine("e:f\t2417\t160\t", network);
    expect("e:f", 2, 0, 97);
    readScanLine("g:h\t2422\t161\t[IBSS]", network);
    expect("g:h", 3, 2, NETWORK_MODE_ADHOC);
}

TEST_F(ScanLine, GoesOnBehindAFirstFieldThatIsNoBssid) {
    readScanLine("lab\t2412\t160\tx", network);
    expect("old", 1, 0, NETWORK_MODE_MANAGED);
}

TEST_F(ScanLine, IsSplitAtTabsAlone) {
    readScanLine("a:b 2412 160", network);
    expect("a:b 2412 160", 99, 98, 97);
}

class ScanMerge : public testing::Test {
protected:
    ScanMerge() {
        for (const char* ssid : {"lab", "a:1\t2412\t185\t[IBSS]", "a:1\t2412\t185"})
            add(ssid);
    }

    void add(const char* ssid) {
        auto* const network = new WifiNetwork;
        network->setSsid(ssid);
        ASSERT_TRUE(list.addNetworkToList(network));
    }

    void merge(const char* line, ScanMatch matches = isWholeLine) {
        mergeScan({"lab-other", line}, list.getHead(), matches);
    }

    const WifiNetwork& withSsid(const char* ssid) {
        const WifiNetwork* network = list.getHead();
        while (std::strcmp(network->getSsid(), ssid) != 0)
            network = network->getNext();
        return *network;
    }

    WifiNetworkList list;
};

TEST_F(ScanMerge, ReadsALineIntoTheNetworkWhoseSsidItIsAsAWhole) {
    merge("a:1\t2412\t185\t[IBSS]");
    EXPECT_STREQ(withSsid("a:1\t2412\t185\t[IBSS]").getBssid(), "a:1");
    EXPECT_EQ(withSsid("a:1\t2412\t185\t[IBSS]").getChannel(), 1U);
    EXPECT_EQ(withSsid("a:1\t2412\t185\t[IBSS]").getStrength(), 50U);
    EXPECT_EQ(withSsid("a:1\t2412\t185\t[IBSS]").getNetworkMode(), NETWORK_MODE_ADHOC);
    EXPECT_STREQ(withSsid("a:1\t2412\t185").getBssid(), nullptr) << "it is only part of the line";
    EXPECT_STREQ(withSsid("lab").getBssid(), nullptr);
}

TEST_F(ScanMerge, PassesOverLinesThatOnlyHoldTheSsid) {
    merge("02:00:00:00:01:00\t2462\t-30\t[ESS]\tlab");
    EXPECT_STREQ(withSsid("lab").getBssid(), nullptr);
    EXPECT_EQ(withSsid("lab").getChannel(), 0U);
}

TEST_F(ScanMerge, ReadsALineIntoEveryNetworkThatTheMatchSaysItIsOf) {
    merge("b:2\t2417\t185",
          [](const char* line, const char* ssid) { return *line == 'b' && *ssid == 'a'; });
    EXPECT_STREQ(withSsid("a:1\t2412\t185\t[IBSS]").getBssid(), "b:2");
    EXPECT_STREQ(withSsid("a:1\t2412\t185").getBssid(), "b:2");
    EXPECT_STREQ(withSsid("lab").getBssid(), nullptr);
}

TEST_F(ScanMerge, PassesOverANetworkWithoutSsid) {
    list.addNetworkToList(new WifiNetwork);
    merge("b:2\t2417\t185", [](const char*, const char* ssid) { return *ssid != '\0'; });
    EXPECT_STREQ(list.getHead()->getBssid(), nullptr);
    EXPECT_STREQ(list.getHead()->getNext()->getBssid(), "b:2");
}

} // namespace
