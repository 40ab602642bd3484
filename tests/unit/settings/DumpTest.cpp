// The listing of everything on standard error.

#include "DumpFixture.h"

#include <gmock/gmock.h>

#include <climits>

using testing::HasSubstr;
using testing::IsEmpty;

namespace test {
namespace {

TEST_F(Dump, OfAnEmptyDatabaseHasTheStateAlone) {
    EXPECT_EQ(reported.dump(), HEADER + IDLE);
}

TEST_F(Dump, AfterAFailureHasNoNetworks) {
    reported.fail();
    EXPECT_EQ(reported.dump(), HEADER + "Current WPA_STATUS        : UNKNOWN\n");
    EXPECT_THAT(reported.loaded.commands(), IsEmpty());
}

// DUMP-1
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

// DUMP-3
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

// DUMP-6
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
    reported.answerStatus("ssid=home\nwpa_state=COMPLETED\n");
    reported.settings->getCurrentStatus("wlan0");
    const std::string end = "Current WPA_STATUS        : COMPLETED\n";
    EXPECT_EQ(reported.dump(), HEADER + BLANK + "Currently associated with: home\n" + end);
    network.setSsid(nullptr);
    EXPECT_EQ(reported.dump(), HEADER + with("home", "") + "Currently associated with: \n" + end);
}

// DUMP-2
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
