#include "LoadFixture.h"

#include "settings/replies/PrintedSsid.h"
#include "support/Lines.h"
#include "unit/model/NetworkRows.h"

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Texts = std::vector<std::string>;

class Load : public test::LoadFixture {};

Texts valueCommands(const std::string& id, const Texts& wepKeys) {
    Texts keys = {"disabled", "bssid", "mode",  "priority", "key_mgmt", "psk",
                  "pairwise", "group", "proto", "eap",      "auth_alg"};
    keys.insert(keys.end(), wepKeys.begin(), wepKeys.end());
    for (const char* key :
         {"scan_ssid", "identity", "anonymous_identity", "password", "private_key_passwd",
          "ca_cert", "ca_path", "client_cert", "private_key", "phase1", "phase2",
          "private_key_passwd2", "ca_cert2", "ca_path2", "client_cert2", "private_key2"})
        keys.emplace_back(key);
    for (std::string& key : keys)
        key.insert(0, "-iwlan0 get_network " + id + " ");
    return keys;
}

TEST_F(Load, RunsItsCommandsInOrder) {
    value("4", "key_mgmt", "NONE");
    value("4", "wep_tx_keyidx", "1");
    script("0\thome\tany\t[CURRENT]\n4\told\tany\t\n");
    load();
    Texts expected = {"interface", "-iwlan0 list_networks"};
    for (const Texts& values :
         {valueCommands("0", {}),
          valueCommands("4", {"wep_tx_keyidx", "wep_key0", "wep_key1", "wep_key2", "wep_key3"})})
        expected.insert(expected.end(), values.begin(), values.end());
    expected.insert(expected.end(), {"-iwlan0 scan_results", "-iwlan0 status"});
    EXPECT_THAT(commands(), ElementsAreArray(expected));
    EXPECT_THAT(commands(), SizeIs(2 + 27 + 32 + 2));
}

TEST_F(Load, TakesEveryValueAsTheClientHasIt) {
    value("7", "disabled", "0");
    value("7", "bssid", "02:11:22:33:44:55");
    value("7", "mode", "1");
    value("7", "priority", "9");
    value("7", "key_mgmt", "NONE");
    value("7", "psk", "\"the key\"");
    value("7", "pairwise", "CCMP");
    value("7", "group", "CCMP TKIP");
    value("7", "proto", "RSN");
    value("7", "eap", "TLS");
    value("7", "auth_alg", "OPEN");
    value("7", "wep_tx_keyidx", "3");
    for (const char* slot : {"0", "1", "2", "3"})
        value("7", std::string("wep_key") + slot, std::string("\"wep ") + slot + "\"");
    value("7", "scan_ssid", "0");
    for (const char* key :
         {"identity", "anonymous_identity", "password", "private_key_passwd", "ca_cert", "ca_path",
          "client_cert", "private_key", "phase1", "phase2", "private_key_passwd2", "ca_cert2",
          "ca_path2", "client_cert2", "private_key2"})
        value("7", key, std::string("\"v ") + key + "\"");
    load("7\thome\tany\t[DISABLED]\n");
    EXPECT_THAT(
        test::valuesOf(*network("home")),
        ElementsAre("ssid=home", "bssid=02:11:22:33:44:55", "psk=the key", "EAPIdentity=v identity",
                    "EAPAnonymousIdentity=v anonymous_identity", "EAPPassword=v password",
                    "CACertificate=v ca_cert", "CACertificateDir=v ca_path",
                    "ClientCertificate=v client_cert", "PrivateKeyFile=v private_key",
                    "PrivateKeyPassword=v private_key_passwd", "Phase1Step=v phase1",
                    "Phase2Step=v phase2", "CACertificate2=v ca_cert2",
                    "CACertificateDir2=v ca_path2", "ClientCertificate2=v client_cert2",
                    "PrivateKeyFile2=v private_key2", "PrivateKeyPassword2=v private_key_passwd2",
                    "channel=0", "priority=9", "protocol=2", "keyManagement=1", "authAlg=1",
                    "groupCiphers=6", "pairwiseCiphers=4", "eapModes=1", "wepKey0=wep 0",
                    "wepKey1=wep 1", "wepKey2=wep 2", "wepKey3=wep 3", "wepIndex=3",
                    "ssidBroadcasted=1", "networkMode=1", "networkId=7", "networkStatus=5",
                    "strength=0", "ipAddress=null", "next=null"));
}

TEST_F(Load, GivesANetworkWithoutValuesWhatTheSupplicantTakesThen) {
    load("0\thome\tany\t\n");
    EXPECT_STREQ(network("home")->getBssid(), "00:00:00:00:00:00");
    EXPECT_EQ(network("home")->getKeyManagement(), 6U);
    EXPECT_EQ(network("home")->getPairwiseCiphers(), 6U);
    EXPECT_EQ(network("home")->getGroupCiphers(), 30U);
    EXPECT_EQ(network("home")->getProtocol(), 3U);
    EXPECT_EQ(network("home")->getNetworkMode(), NETWORK_MODE_UNKNOWN);
}

// LOAD-7
TEST_F(Load, TakesTheBssidOfTheListOnlyUntilItsValueIsRead) {
    load("0\thome\t02:11:22:33:44:55\t\n");
    EXPECT_STREQ(network("home")->getBssid(), "00:00:00:00:00:00");
}

TEST_F(Load, KeepsValuesOfOneNetworkFromTheNext) {
    value("0", "psk", "secret");
    value("0", "identity", "me");
    value("0", "key_mgmt", "WPA-NONE");
    load("0\tfirst\tany\t\n1\tsecond\tany\t\n");
    EXPECT_STREQ(network("first")->getPsk(), "secret");
    EXPECT_EQ(network("first")->getKeyManagement(), KEY_MGMT_WPA_NONE);
    EXPECT_EQ(network("second")->getPsk(), nullptr);
    EXPECT_EQ(network("second")->getEAPIdentity(), nullptr);
    EXPECT_EQ(network("second")->getKeyManagement(), 6U);
}

TEST_F(Load, TakesValuesOf127Characters) {
    value("0", "identity", std::string(127, 'i'));
    value("0", "password", std::string(128, 'p'));
    value("0", "ca_cert", std::string(300, 'c'));
    value("0", "ca_path", "\"" + std::string(125, 'd') + "\"");
    value("0", "phase1", "\"" + std::string(126, 'e') + "\"");
    load("0\thome\tany\t\n");
    EXPECT_EQ(network("home")->getEAPIdentity(), std::string(127, 'i'));
    EXPECT_EQ(network("home")->getEAPPassword(), std::string(127, 'p')) << "cut";
    EXPECT_EQ(network("home")->getCACertificate(), std::string(127, 'c')) << "cut";
    EXPECT_EQ(network("home")->getCACertificateDir(), std::string(125, 'd'));
    EXPECT_EQ(network("home")->getPhase1Step(), nullptr) << "its last quote is cut off";
}

// LOAD-1
TEST_F(Load, HoldsCleanNetworksInAValidListTheLastOneFirst) {
    value("1", "priority", "3");
    load("0\ta\tany\t\n1\tb\tany\t\n2\tc\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("c", "b", "a"));
    for (const char* ssid : {"a", "b", "c"})
        EXPECT_THAT(test::dirtyOf(*network(ssid)), IsEmpty()) << ssid;
    EXPECT_TRUE(test::networksOf(load("0\ta\tany\t\n"))->isValid());
}

TEST_F(Load, HoldsWhatIsThereNowAfterARefresh) {
    load("0\ta\tany\t[CURRENT]\n1\tb\tany\t\n", "wpa_state=COMPLETED\n");
    const WifiHostSettings& settings = load("0\tb\tany\t\n", "");
    EXPECT_THAT(ssids(), ElementsAre("b"));
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(test::supplicantStateOf(settings), WPA_STATE_UNKNOWN);
}

// LOAD-14
TEST_F(Load, OfAnEmptyListAsksForNoScanButForTheStatus) {
    script("", "ssid=home\nwpa_state=SCANNING\n");
    const WifiHostSettings& settings = load();
    EXPECT_THAT(commands(), ElementsAre("interface", "-iwlan0 list_networks", "-iwlan0 status"));
    ASSERT_NE(test::networksOf(settings), nullptr);
    EXPECT_EQ(test::networksOf(settings)->getCount(), 0U);
    EXPECT_TRUE(test::networksOf(settings)->isValid());
    EXPECT_EQ(test::supplicantStateOf(settings), WPA_STATE_SCANNING);
}

TEST_F(Load, AsksForTheScanOnceThereIsALineEvenOfNoNetwork) {
    script("0\n");
    const WifiHostSettings& settings = load();
    EXPECT_THAT(commands(), ElementsAre("interface", "-iwlan0 list_networks",
                                        "-iwlan0 scan_results", "-iwlan0 status"));
    EXPECT_EQ(test::networksOf(settings)->getCount(), 0U);
}

// LOAD-8
TEST_F(Load, NamesANetworkWithoutSsidAndTakesItForCurrent) {
    load("0\tany\t[CURRENT]\n", "wpa_state=SCANNING\n");
    EXPECT_THAT(ssids(), ElementsAre("SSID N/A"));
    EXPECT_STREQ(network("SSID N/A")->getBssid(), "00:00:00:00:00:00");
    EXPECT_EQ(current(), "SSID N/A");
    EXPECT_EQ(statusOf("SSID N/A"), NETWORK_STATUS_CONNECTING);
    load("0\t\tany\t[DISABLED]\n1\t\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("SSID N/A")) << "once, as any other";
}

// LOAD-4
TEST_F(Load, KeepsSsidsAsTheClientPrintsThem) {
    load("0\t\\xe4\\\\ \\\"x\\\"\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("\\xe4\\\\ \\\"x\\\""));
}

// LOAD-9
TEST_F(Load, DropsLinesOfNoNetworkAlone) {
    load("0\ta\tany\t\n1\n2\tlonely\n\n3\tb\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("b", "a"));
}

// LOAD-9
TEST_F(Load, TakesTheFirstOfTwoNetworksWithOneSsid) {
    value("0", "priority", "1");
    value("1", "priority", "2");
    script("0\thome\tany\t\n1\thome\tany\t\n");
    load();
    EXPECT_THAT(ssids(), ElementsAre("home"));
    EXPECT_EQ(network("home")->getNetworkId(), 0);
    EXPECT_EQ(network("home")->getPriority(), 1U);
    EXPECT_THAT(commands(), SizeIs(2 + 27 + 27 + 2)) << "the other one was read, too";
}

// The second one is current until the list refuses it; nothing may point at it then.
TEST_F(Load, ForgetsACurrentNetworkThatTheListRefuses) {
    load("0\thome\tany\t\n1\thome\tany\t[CURRENT]\n", "wpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(Load, FindsTheNetworkThatStaysByTheStatus) {
    load("0\thome\tany\t\n1\thome\tany\t[CURRENT]\n", "ssid=home\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(network("home")->getNetworkId(), 0);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
}

// LOAD-6
TEST_F(Load, AsksForANumberAbove255ByItsLast8Bits) {
    script("300\thome\tany\t\n");
    load();
    EXPECT_EQ(network("home")->getNetworkId(), 44);
    EXPECT_EQ(commands()[2], "-iwlan0 get_network 44 disabled");
}

// Lines that tell of no network count as well, and cost no commands here.
// LOAD-1
TEST_F(Load, TakesTheFirst32LinesOfTheList) {
    std::string list;
    for (int i = 0; i < 31; ++i)
        list += std::to_string(i) + "\n";
    script(list + "31\tlast\tany\t\n");
    load();
    EXPECT_THAT(ssids(), ElementsAre("last"));
    standIn.reset();
    script(list + "31\tlast\tany\t\n32\tnot any more\tany\t\n" + list);
    load();
    EXPECT_THAT(ssids(), ElementsAre("last"));
    EXPECT_THAT(commands(), SizeIs(2 + 27 + 2));
}

// What the client prints for 8 emoji, or for 16 Cyrillic letters: more than one piece of a line holds.
const std::string LONG_SSIDS[] = {
    platwifi::printedSsid("\xf0\x9f\x98\x80\xf0\x9f\x98\x81\xf0\x9f\x98\x82\xf0\x9f\x98\x83"
                          "\xf0\x9f\x98\x84\xf0\x9f\x98\x85\xf0\x9f\x98\x86\xf0\x9f\x98\x87"),
    platwifi::printedSsid("\xd0\xb0\xd0\xb1\xd0\xb2\xd0\xb3\xd0\xb4\xd0\xb5\xd0\xb6\xd0\xb7"
                          "\xd0\xb8\xd0\xb9\xd0\xba\xd0\xbb\xd0\xbc\xd0\xbd\xd0\xbe\xd0\xbf"),
};

// LOAD-2
TEST_F(Load, TakesALongSsidWholeAndNoRestForANetwork) {
    for (const std::string& ssid : LONG_SSIDS) {
        ASSERT_EQ(ssid.size(), 128U);
        load("0\thome\tany\t\n7\t" + ssid + "\tany\t[CURRENT]\n8\twork\tany\t\n",
             "ssid=" + ssid + "\nid=7\nwpa_state=COMPLETED\n");
        ASSERT_THAT(ssids(), ElementsAre("work", ssid, "home"));
        EXPECT_EQ(network(ssid.c_str())->getNetworkId(), 7);
        EXPECT_EQ(statusOf(ssid.c_str()), NETWORK_STATUS_CONNECTED);
        EXPECT_EQ(current(), ssid);
        EXPECT_EQ(network("work")->getNetworkId(), 8);
    }
}

// LOAD-1
TEST_F(Load, TakesTheFirst32LinesWhateverTheirLength) {
    std::string list;
    for (int i = 10; i < 41; ++i)
        list += std::to_string(i) + "\n";
    for (const std::string& ssid : LONG_SSIDS)
        list += std::to_string(ssid == LONG_SSIDS[0] ? 41 : 42) + "\t" + ssid + "\tany\t\n";
    load(list);
    EXPECT_THAT(ssids(), ElementsAre(LONG_SSIDS[0])) << "the second one is in line 33";
}

// SSIDs of the list hold no tabs: there is nothing to read in a line that is one.
// LOAD-21
TEST_F(Load, ReadsNothingFromScanLinesThatAreNotTheSsidAsAWhole) {
    load("0\tlab\tany\t\n", "", "02:00:00:00:01:00\t2412\t185\t[IBSS]\tlab\nlab\nlab\t2412\t185\n");
    EXPECT_STREQ(network("lab")->getBssid(), "00:00:00:00:00:00");
    EXPECT_EQ(network("lab")->getChannel(), 0U);
    EXPECT_EQ(network("lab")->getStrength(), 0U);
    EXPECT_EQ(network("lab")->getNetworkMode(), NETWORK_MODE_UNKNOWN);
}

// LOAD-3
TEST_F(Load, KeepsTwoAdaptersAndUsesTheFirst) {
    standIn.on({"interface"}).prints(test::ADAPTER_HEADER + "wlan7\nwlan0\nwlan1\n");
    standIn.on({"*"}).prints("");
    const WifiHostSettings& settings = load();
    ASSERT_NE(test::adapterNamesOf(settings), nullptr);
    EXPECT_THAT(test::toStrings(*test::adapterNamesOf(settings)), ElementsAre("wlan7", "wlan0"));
    EXPECT_THAT(commands(), ElementsAre("interface", "-iwlan7 list_networks", "-iwlan7 status"));
}

TEST_F(Load, LeavesNoLockHeld) {
    load("0\thome\tany\t[CURRENT]\n", "ssid=home\nwpa_state=COMPLETED\n", "home\n");
    expectNoLockHeld();
}

} // namespace
