// Any line of a client is read without harm, and gives values within their bounds.

#include "model/NetworkFields.h"
#include "model/WifiNetwork.h"
#include "settings/replies/ListLine.h"
#include "settings/replies/NetworkKeys.h"
#include "settings/replies/ScanLine.h"
#include "settings/replies/StatusLine.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <utility>

using namespace platwifi;

namespace {

constexpr int ROUNDS = 4000;

// Bytes, separators and the words that parsers look for, up to several hundred characters.
// clang-format off
std::string randomLine(std::mt19937& random) {
    static const char* const WORDS[] = {
        "\t", " ", ":", "=", "any", "[CURRENT]", "[DISABLED]", "[IBSS]", "2412", "-30", "185",
        "99999999999999999999", "-99999999999999999999", "ssid=", "bssid=", "wpa_state=",
        "WPA-NONE", "TTLS", "CCMP", "WEP104",
    };
    // clang-format on
    std::string line;
    for (auto parts = random() % 12; parts > 0; --parts) {
        if (random() % 3 == 0)
            line += test::randomBytes(random);
        else
            line += WORDS[random() % std::size(WORDS)];
    }
    return line;
}

// Runs `check` for many lines, which are the same in each run.
template <typename Check>
void forRandomLines(Check check) {
    std::mt19937 random(1);
    for (int i = 0; i < ROUNDS && !testing::Test::HasFatalFailure(); ++i)
        check(randomLine(random));
}

TEST(RandomLines, ListLinesGiveANamedNetworkOrNone) {
    forRandomLines([](const std::string& line) {
        WifiNetwork network;
        if (!readListLine(line, network))
            return;
        setStatusByFlag(network, listFlagIn(line.c_str()));
        ASSERT_NE(network.getSsid(), nullptr) << line;
        ASSERT_NE(network.getBssid(), nullptr) << line;
        ASSERT_NE(std::strchr(network.getBssid(), ':'), nullptr) << line;
        ASSERT_STRNE(network.getSsid(), "any");
        ASSERT_EQ(std::strpbrk(network.getSsid(), "\t:"), nullptr) << line;
    });
}

TEST(RandomLines, ScanLinesGiveNumbersWithinTheirBounds) {
    forRandomLines([](const std::string& line) {
        WifiNetwork network;
        readScanLine(line.c_str(), network);
        ASSERT_LE(network.getChannel(), 11U) << line;
        ASSERT_LE(network.getStrength(), 100U) << line;
        ASSERT_TRUE(isWholeLine(line.c_str(), line.c_str()));
    });
}

TEST(RandomLines, StatusLinesGiveTextsWithinThem) {
    forRandomLines([](const std::string& line) {
        const bool has = line.find("ssid=") != std::string::npos;
        for (const StatusReader reader :
             {StatusReader::LOAD, StatusReader::CURRENT_STATUS, StatusReader::CURRENT_NETWORK}) {
            const StatusLine read = readStatusLine(line.c_str(), reader);
            ASSERT_TRUE(read.kind != StatusKind::SSID || has) << line;
            const std::string value = read.value;
            ASSERT_EQ(line.substr(line.size() - value.size()), value);
        }
    });
}

// Every fourth field has no value.
TEST(RandomLines, ValuesGiveSetsOfKnownFlags) {
    const std::pair<Field, unsigned int> highest[] = {
        {Field::PROTOCOL, 3},         {Field::KEY_MANAGEMENT, 16}, {Field::PAIRWISE_CIPHERS, 7},
        {Field::GROUP_CIPHERS, 30},   {Field::AUTH_ALG, 4},        {Field::WEP_INDEX, 3},
        {Field::SSID_BROADCASTED, 1}, {Field::EAP_MODES, 0x400},   {Field::NETWORK_MODE, 255},
    };
    std::mt19937 random(4);
    for (int i = 0; i < ROUNDS / 10; ++i) {
        WifiNetwork network;
        std::string value;
        readNetworkKeys(network, [&](const char*) {
            value = randomLine(random);
            return random() % 4 == 0 ? nullptr : value.c_str();
        });
        for (const auto& [field, number] : highest)
            ASSERT_LE(NetworkFields::of(network).number(field), number);
    }
}

} // namespace
