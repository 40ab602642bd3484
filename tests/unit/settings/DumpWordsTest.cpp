// What the numbers of a network are called in the dump.

#include "DumpFixture.h"

#include <climits>
#include <functional>

namespace test {
namespace {

using DumpWords = Dump;

// One field's words: a value, and what follows the colon.
struct WordRow {
    unsigned int value;
    const char* words;
};

template <typename Set, typename Rows>
void expectWords(ReportedSettings& reported, const std::string& label, Set set, const Rows& rows) {
    WifiNetwork& network = reported.add("home");
    for (const WordRow& row : rows) {
        set(network, row.value);
        EXPECT_EQ(reported.dump(),
                  HEADER + with(label + " UNKNOWN\n", label + row.words + "\n") + IDLE)
            << row.value;
    }
}

TEST_F(DumpWords, HasTheWordOfTheMode) {
    const WordRow rows[] = {
        {NETWORK_MODE_MANAGED, " MANAGED"},
        {NETWORK_MODE_ADHOC, " ADHOC"},
        {NETWORK_MODE_UNKNOWN, " UNKNOWN"},
        {3, " UNKNOWN"},
        {UCHAR_MAX, " UNKNOWN"},
    };
    const auto set = [](WifiNetwork& network, unsigned int value) {
        network.setNetworkMode(static_cast<unsigned char>(value));
    };
    expectWords(reported, "Network Mode    :", set, rows);
}

// DUMP-4
TEST_F(DumpWords, HasTheWordsOfTheProtocols) {
    const WordRow rows[] = {
        {0, " UNKNOWN"},
        {PROTOCOL_WPA, " WPA"},
        {PROTOCOL_RSN, " RSN"},
        {PROTOCOL_WPA | PROTOCOL_RSN, " WPA RSN"},
        {0x4, ""},
        {UINT_MAX, " WPA RSN"},
    };
    expectWords(reported, "Protocol        :", std::mem_fn(&WifiNetwork::setProtocol), rows);
}

// DUMP-5
TEST_F(DumpWords, HasTheWordsOfTheKeyManagement) {
    const WordRow rows[] = {
        {0, " UNKNOWN"},
        {KEY_MGMT_NONE, " NONE"},
        {KEY_MGMT_WPA_PSK, " WPA_PSK"},
        {KEY_MGMT_WPA_EAP, " WPA_EAP"},
        {KEY_MGMT_IEEE8021X, " IEEE8021X"},
        {KEY_MGMT_WPA_NONE, " WPA_NONE"},
        {KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_EAP, " WPA_EAP WPA_PSK"},
        {KEY_MGMT_WPA_NONE | KEY_MGMT_IEEE8021X, " WPA_NONE IEEE8021X"},
        {0x20, ""},
        {UINT_MAX, " NONE WPA_EAP WPA_PSK WPA_NONE IEEE8021X"},
    };
    expectWords(reported, "KeyManagement   :", std::mem_fn(&WifiNetwork::setKeyManagement), rows);
}

// DUMP-4, DUMP-5
TEST_F(DumpWords, HasTheWordsOfThePairwiseCiphers) {
    const WordRow rows[] = {
        {0, " UNKNOWN"},
        {PAIRWISE_NONE, " NONE"},
        {PAIRWISE_TKIP, " TKIP"},
        {PAIRWISE_CCMP, " CCMP"},
        {0x8, ""},
        {UINT_MAX, " TKIP CCMP NONE"},
    };
    expectWords(reported, "Pairwise        :", std::mem_fn(&WifiNetwork::setPairwiseCiphers), rows);
}

TEST_F(DumpWords, HasTheWordsOfTheGroupCiphers) {
    const WordRow rows[] = {
        {0, " UNKNOWN"},
        {GROUP_TKIP, " TKIP"},
        {GROUP_CCMP, " CCMP"},
        {GROUP_WEP104, " WEP104"},
        {GROUP_WEP40, " WEP40"},
        {0x1, ""},
        {UINT_MAX, " TKIP CCMP WEP104 WEP40"},
    };
    expectWords(reported, "Group           :", std::mem_fn(&WifiNetwork::setGroupCiphers), rows);
}

// DUMP-5
TEST_F(DumpWords, HasTheWordsOfTheEapModes) {
    const WordRow rows[] = {
        {0, " UNKNOWN"},
        {EAP_TLS, " TLS"},
        {EAP_PEAP, " PEAP"},
        {EAP_TTLS, " TTLS"},
        {EAP_MD5, " MD5"},
        {EAP_LEAP, " LEAP"},
        {EAP_MSCHAPV2, " MSCHAPV2"},
        {EAP_GTC, " GTC"},
        {EAP_OTP, " OTP"},
        {EAP_PSK, " PSK"},
        {EAP_PAX, " PAX"},
        {EAP_FAST, " FAST"},
        {EAP_PAX | EAP_FAST, " FAST PAX"},
        {0x800, ""},
        {UINT_MAX, " TLS PEAP TTLS MD5 LEAP MSCHAPV2 GTC OTP PSK FAST PAX"},
    };
    expectWords(reported, "EAP Modes       :", std::mem_fn(&WifiNetwork::setEapModes), rows);
}

TEST_F(DumpWords, HasTheWordOfTheAuthentication) {
    const WordRow rows[] = {
        {AUTH_ALG_UNKNOWN, " UNKNOWN"},
        {AUTH_ALG_OPEN, " OPEN"},
        {AUTH_ALG_SHARED, " SHARED"},
        {AUTH_ALG_LEAP, " LEAP"},
        {AUTH_ALG_AUTO, " AUTO"},
        {5, ""},
        {UINT_MAX, ""},
    };
    expectWords(reported, "AUTH_ALG        :", std::mem_fn(&WifiNetwork::setAuthAlg), rows);
}

} // namespace
} // namespace test
