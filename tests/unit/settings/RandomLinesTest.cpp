// Whatever a client prints is read without harm; what it comes to stays within its bounds.

#include "model/WifiNetwork.h"
#include "settings/replies/ListLine.h"
#include "settings/replies/NetworkKeys.h"
#include "settings/replies/ScanLine.h"
#include "settings/replies/StatusLine.h"
#include "settings/replies/ValueWords.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

using namespace platwifi;

namespace {

constexpr int ROUNDS = 4000;

// Bytes, separators and the words that parsers look for, up to several hundred characters.
std::string randomLine(std::mt19937& random) {
    static const char* const WORDS[] = {
        "\t",
        " ",
        ":",
        "=",
        "any",
        "[CURRENT]",
        "[DISABLED]",
        "[IBSS]",
        "2412",
        "-30",
        "185",
        "99999999999999999999",
        "-99999999999999999999",
        "ssid=",
        "bssid=",
        "wpa_state=",
        "WPA-NONE",
        "TTLS",
        "CCMP",
        "WEP104",
    };
    std::string line;
    for (auto parts = random() % 12; parts > 0; --parts) {
        if (random() % 3 == 0)
            line += test::randomBytes(random);
        else
            line += WORDS[random() % (sizeof(WORDS) / sizeof(WORDS[0]))];
    }
    return line;
}

TEST(RandomLines, ListLinesGiveANamedNetworkOrNone) {
    std::mt19937 random(1);
    for (int i = 0; i < ROUNDS; ++i) {
        const std::string line = randomLine(random);
        WifiNetwork network;
        if (!readListLine(line, network))
            continue;
        setStatusByFlag(network, listFlagIn(line.c_str()));
        ASSERT_NE(network.getSsid(), nullptr) << line;
        ASSERT_NE(network.getBssid(), nullptr) << line;
        ASSERT_NE(std::strchr(network.getBssid(), ':'), nullptr) << line;
        ASSERT_STRNE(network.getSsid(), "any");
        ASSERT_EQ(std::strpbrk(network.getSsid(), "\t:"), nullptr) << line;
    }
}

TEST(RandomLines, ScanLinesGiveNumbersWithinTheirBounds) {
    std::mt19937 random(2);
    for (int i = 0; i < ROUNDS; ++i) {
        const std::string line = randomLine(random);
        WifiNetwork network;
        readScanLine(line.c_str(), network);
        ASSERT_LE(network.getChannel(), 11U) << line;
        ASSERT_LE(network.getStrength(), 100U) << line;
        ASSERT_TRUE(isWholeLine(line.c_str(), line.c_str()));
    }
}

TEST(RandomLines, StatusLinesGiveTextsWithinThem) {
    std::mt19937 random(3);
    for (int i = 0; i < ROUNDS; ++i) {
        const std::string line = randomLine(random);
        const bool has = line.find("ssid=") != std::string::npos;
        for (const StatusReader reader :
             {StatusReader::LOAD, StatusReader::CURRENT_STATUS, StatusReader::CURRENT_NETWORK}) {
            const StatusLine read = readStatusLine(line.c_str(), reader);
            ASSERT_TRUE(read.kind != StatusKind::SSID || has) << line;
            const std::string value = read.value;
            ASSERT_EQ(line.substr(line.size() - value.size()), value);
        }
    }
}

TEST(RandomLines, ValuesGiveSetsOfKnownFlags) {
    std::mt19937 random(4);
    for (int i = 0; i < ROUNDS / 10; ++i) {
        WifiNetwork network;
        std::string value;
        readNetworkKeys(network, [&](const char*) {
            value = randomLine(random);
            return random() % 4 == 0 ? nullptr : value.c_str();
        });
        ASSERT_LE(network.getProtocol(), 3U);
        ASSERT_LE(network.getKeyManagement(), 16U);
        ASSERT_LE(network.getPairwiseCiphers(), 7U);
        ASSERT_LE(network.getGroupCiphers(), 30U);
        ASSERT_LE(network.getAuthAlg(), 4U);
        ASSERT_LE(network.getWepIndex(), 3U);
    }
}

} // namespace
