// The listing of everything on standard error.

#include "ReportedSettings.h"
#include "SettingsState.h"
#include "model/WifiNetwork.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>

using testing::HasSubstr;
using testing::IsEmpty;

namespace test {
namespace {

const std::string HEADER = "Network Database: \n";
const std::string IDLE = "Current WPA_STATUS        : IDLE\n";

// Of a network that has nothing but an SSID.
const std::string BLANK = "\tNetwork SSID    : home\n"
                          "\tNetwork BSSID   : \n"
                          "\tChannel         : 0\n"
                          "\tStrength        : 0\n"
                          "\tSSID Broadcast  : no\n"
                          "\tPriority        : 0\n"
                          "\tNetwork Mode    : UNKNOWN\n"
                          "\tProtocol        : UNKNOWN\n"
                          "\tKeyManagement   : UNKNOWN\n"
                          "\tPairwise        : UNKNOWN\n"
                          "\tGroup           : UNKNOWN\n"
                          "\tEAP Modes       : UNKNOWN\n"
                          "\tAUTH_ALG        : UNKNOWN\n"
                          "\tPre Shared Key  : \n"
                          "\tEAP Identity                  : \n"
                          "\tEAP Anonymous Identity        : \n"
                          "\tEAP Password                  : \n"
                          "\tOuter Private Key Password    : \n"
                          "\tOuter CA Certificate File     : \n"
                          "\tOuter CA Certificate Path     : \n"
                          "\tOuter Client Certificate      : \n"
                          "\tOuter Private Key File        : \n"
                          "\tPhase 1                       : \n"
                          "\tPhase 2                       : \n"
                          "\tInner Private Key Password    : \n"
                          "\tInner CA Certificate File     : \n"
                          "\tInner CA Certificate Path     : \n"
                          "\tInner Client Certificate      : \n"
                          "\tInner Private Key File        : \n"
                          "\n";

std::string with(const std::string& line, const std::string& other) {
    std::string lines = BLANK;
    const std::size_t at = lines.find(line);
    EXPECT_NE(at, std::string::npos) << line;
    return lines.replace(at, line.size(), other);
}

class Dump : public testing::Test {
protected:
    Dump() { reported.settings->*memberOf(SupplicantState{}) = WPA_STATE_IDLE; }

    /// The state as the supplicant tells it, with its network.
    void take(const std::string& status) {
        reported.answerStatus(status);
        reported.settings->getCurrentStatus("wlan0");
    }

    ReportedSettings reported;
};

TEST_F(Dump, OfAnEmptyDatabaseHasTheStateAlone) {
    EXPECT_EQ(reported.dump(), HEADER + IDLE);
}

TEST_F(Dump, AfterAFailureHasNoNetworks) {
    reported.fail();
    EXPECT_EQ(reported.dump(), HEADER + "Current WPA_STATUS        : UNKNOWN\n");
    EXPECT_THAT(reported.loaded.commands(), IsEmpty());
}

TEST_F(Dump, HasALineForEveryField) {
    WifiNetwork& network = reported.add("home");
    fill(network);
    network.setProtocol(PROTOCOL_RSN);
    network.setKeyManagement(KEY_MGMT_WPA_EAP);
    network.setPairwiseCiphers(PAIRWISE_CCMP);
    network.setGroupCiphers(GROUP_WEP104);
    EXPECT_EQ(reported.dump(), HEADER +
                                   "\tNetwork SSID    : home\n"
                                   "\tNetwork BSSID   : the bssid\n"
                                   "\tChannel         : 11\n"
                                   "\tStrength        : 83\n"
                                   "\tSSID Broadcast  : yes\n"
                                   "\tPriority        : 7\n"
                                   "\tNetwork Mode    : ADHOC\n"
                                   "\tProtocol        : RSN\n"
                                   "\tKeyManagement   : WPA_EAP\n"
                                   "\tPairwise        : CCMP\n"
                                   "\tGroup           : WEP104\n"
                                   "\tEAP Modes       : PEAP FAST\n"
                                   "\tAUTH_ALG        : LEAP\n"
                                   "\tPre Shared Key  : the psk\n"
                                   "\tWEP Index       : 2\n"
                                   "\tWEP Key 0       : the first key\n"
                                   "\tWEP Key 1       : the second key\n"
                                   "\tWEP Key 2       : the third key\n"
                                   "\tWEP Key 3       : the fourth key\n"
                                   "\tEAP Identity                  : the identity\n"
                                   "\tEAP Anonymous Identity        : the anonymous identity\n"
                                   "\tEAP Password                  : the password\n"
                                   "\tOuter Private Key Password    : the key password\n"
                                   "\tOuter CA Certificate File     : the ca file\n"
                                   "\tOuter CA Certificate Path     : the ca folder\n"
                                   "\tOuter Client Certificate      : the client file\n"
                                   "\tOuter Private Key File        : the key file\n"
                                   "\tPhase 1                       : the phase1\n"
                                   "\tPhase 2                       : the phase2\n"
                                   "\tInner Private Key Password    : the inner key password\n"
                                   "\tInner CA Certificate File     : the inner ca file\n"
                                   "\tInner CA Certificate Path     : the inner ca folder\n"
                                   "\tInner Client Certificate      : the inner client file\n"
                                   "\tInner Private Key File        : the inner key file\n"
                                   "\n" +
                                   IDLE);
}

TEST_F(Dump, OfANetworkWithNothingSetHasEmptyLines) {
    reported.add("home");
    EXPECT_EQ(reported.dump(), HEADER + BLANK + IDLE);
}

TEST_F(Dump, OfANetworkWithoutSsidHasAnEmptyOne) {
    reported.add("home").setSsid(nullptr);
    EXPECT_EQ(reported.dump(),
              HEADER + with("\tNetwork SSID    : home\n", "\tNetwork SSID    : \n") + IDLE);
}

TEST_F(Dump, HasTheNetworkAddedLastFirst) {
    for (const char* const ssid : {"home", "work", "train"})
        reported.add(ssid);
    EXPECT_EQ(reported.dump(),
              HEADER + with("home", "train") + with("home", "work") + BLANK + IDLE);
}

TEST_F(Dump, HasTextAsItIs) {
    reported.add("home").setSsid("<caf\xC3\xA9> %s \xFF");
    EXPECT_EQ(reported.dump(), HEADER + with("home", "<caf\xC3\xA9> %s \xFF") + IDLE);
}

TEST_F(Dump, HasTextOfAnyLength) {
    const std::string longText(1000000, 'x');
    reported.add("home").setPsk(longText.c_str());
    EXPECT_EQ(reported.dump(), HEADER + with("Key  : ", "Key  : " + longText) + IDLE);
}

TEST_F(Dump, HasSignedNumbers) {
    WifiNetwork& network = reported.add("home");
    network.setChannel(UINT_MAX);
    network.setStrength(INT_MAX);
    network.setPriority(1U << 31U);
    EXPECT_THAT(reported.dump(), HasSubstr("\tChannel         : -1\n"
                                           "\tStrength        : 2147483647\n"
                                           "\tSSID Broadcast  : no\n"
                                           "\tPriority        : -2147483648\n"));
}

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

TEST_F(Dump, HasTheWordOfTheMode) {
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

TEST_F(Dump, HasTheWordsOfTheProtocols) {
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

TEST_F(Dump, HasTheWordsOfTheKeyManagement) {
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

TEST_F(Dump, HasTheWordsOfThePairwiseCiphers) {
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

TEST_F(Dump, HasTheWordsOfTheGroupCiphers) {
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

TEST_F(Dump, HasTheWordsOfTheEapModes) {
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

TEST_F(Dump, HasTheWordOfTheAuthentication) {
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

TEST_F(Dump, HasWepKeysOnlyBesideTheFirst) {
    struct Row {
        const char* keys[4];
        const char* lines;
    };
    const Row rows[] = {
        {{nullptr, "b", "c", nullptr}, ""},
        {{nullptr, "b", "c", "d"}, ""},
        {{"a", nullptr, nullptr, nullptr}, "\tWEP Index       : 3\n\tWEP Key 0       : a\n"},
        {{"a", "b", nullptr, nullptr},
         "\tWEP Index       : 3\n\tWEP Key 0       : a\n\tWEP Key 1       : b\n"},
        {{"a", nullptr, "c", nullptr},
         "\tWEP Index       : 3\n\tWEP Key 0       : a\n\tWEP Key 2       : c\n"},
        {{"a", nullptr, nullptr, "d"},
         "\tWEP Index       : 3\n\tWEP Key 0       : a\n\tWEP Key 3       : d\n"},
    };
    WifiNetwork& network = reported.add("home");
    network.setWepIndex(3);
    const std::string before = "\tPre Shared Key  : \n";
    for (const Row& row : rows) {
        for (unsigned int slot = 0; slot < 4; ++slot)
            network.setWepKey(slot, row.keys[slot]);
        EXPECT_EQ(reported.dump(), HEADER + with(before, before + row.lines) + IDLE);
    }
}

TEST_F(Dump, HasTheWordOfTheState) {
    const char* const words[] = {" UNKNOWN",
                                 " DISCONNECTED",
                                 " IDLE",
                                 " SCANNING",
                                 " ASSOCIATING",
                                 " ASSOCIATED",
                                 " 4-WAY HANDSHAKE",
                                 " GROUP HANDSHAKE",
                                 " COMPLETED",
                                 "",
                                 ""};
    unsigned int state = 0;
    for (const char* const word : words) {
        reported.settings->*memberOf(SupplicantState{}) = static_cast<WpaState>(state++);
        EXPECT_EQ(reported.dump(), HEADER + "Current WPA_STATUS        :" + word + "\n");
    }
}

TEST_F(Dump, HasTheCurrentNetwork) {
    WifiNetwork& network = reported.add("home");
    take("ssid=home\nwpa_state=COMPLETED\n");
    const std::string end = "Current WPA_STATUS        : COMPLETED\n";
    EXPECT_EQ(reported.dump(), HEADER + BLANK + "Currently associated with: home\n" + end);
    network.setSsid(nullptr);
    EXPECT_EQ(reported.dump(), HEADER + with("home", "") + "Currently associated with: \n" + end);
}

TEST_F(Dump, BringsTheNetworksUpToDateFirst) {
    reported.loadForRefresh("0\thome\tany\t\n");
    reported.loaded.standIn.on({"-iwlan0", "list_networks"}).prints("h\n0\thome\tany\t[CURRENT]\n");
    reported.loaded.standIn.on({"-iwlan0", "scan_results"})
        .prints("h\n02:00:00:00:00:01\t2462\t-40\t[ESS]\thome\n");
    const std::string dump = reported.dump();
    EXPECT_THAT(dump, HasSubstr("\tNetwork BSSID   : 02:00:00:00:00:01\n"
                                "\tChannel         : 11\n"
                                "\tStrength        : 100\n"));
    EXPECT_THAT(dump, HasSubstr("\nCurrently associated with: home\n"));
}

} // namespace
} // namespace test
