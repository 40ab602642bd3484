// Loading every field of every kind of network.

#include "SettingsTest.h"

using test::openNetworks;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::string network(const std::string& fields) {
    return "network={\n" + fields + "\n}\n";
}

// The body of a network of the configuration file, but for the SSID.
struct Kind {
    const char* name;
    const char* fields;
};

const Kind KINDS[] = {
    {"open", "key_mgmt=NONE"},
    {"nothing but a name", ""},
    {"WPA2-PSK", "proto=RSN\n key_mgmt=WPA-PSK\n pairwise=CCMP\n group=CCMP\n"
                 " psk=\"correct horse battery\"\n priority=7"},
    {"WPA1", "proto=WPA\n pairwise=TKIP\n group=TKIP WEP104 WEP40\n psk=\"correct horse\""},
    {"PSK in digits", "psk=0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef"},
    {"PSK or EAP", "key_mgmt=WPA-PSK WPA-EAP\n pairwise=CCMP TKIP\n group=CCMP TKIP"},
    {"a newer key management", "key_mgmt=WPA-PSK-SHA256 SAE\n ieee80211w=2\n psk=\"12345678\""},
    {"no WPA", "key_mgmt=IEEE8021X\n eap=MD5\n identity=\"bob\"\n password=\"secret\"\n"
               " wep_key1=\"abcde\"\n wep_tx_keyidx=1"},
    {"WEP of 40 bits", "key_mgmt=NONE\n wep_key0=0123456789\n wep_key1=\"abcde\""},
    {"WEP of 104 bits", "key_mgmt=NONE\n wep_key2=0123456789abcdef0123456789\n"
                        " wep_key3=\"abcdefghijklm\"\n wep_tx_keyidx=3\n auth_alg=SHARED"},
    {"WEP keys beside WPA", "key_mgmt=WPA-PSK\n psk=\"12345678\"\n wep_key0=\"abcde\"\n"
                            " wep_tx_keyidx=2"},
    {"PEAP", "key_mgmt=WPA-EAP\n eap=PEAP\n identity=\"bob\"\n anonymous_identity=\"anybody\"\n"
             " password=\"secret\"\n ca_cert=\"/etc/ca.pem\"\n phase1=\"peapver=0\"\n"
             " phase2=\"auth=MSCHAPV2\""},
    {"TTLS", "key_mgmt=WPA-EAP\n eap=TTLS\n identity=\"bob\"\n password=\"secret\"\n"
             " ca_path=\"/etc/certificates\"\n phase2=\"auth=PAP\""},
    {"TLS", "key_mgmt=WPA-EAP\n eap=TLS\n identity=\"bob\"\n ca_cert=\"/etc/ca.pem\"\n"
            " ca_path=\"/etc/certificates\"\n client_cert=\"/etc/client.pem\"\n"
            " private_key=\"/etc/client.key\"\n private_key_passwd=\"key password\""},
    {"TLS inside of TTLS",
     "key_mgmt=WPA-EAP\n eap=TTLS\n identity=\"bob\"\n anonymous_identity=\"anybody\"\n"
     " ca_cert=\"/etc/ca.pem\"\n ca_path=\"/etc/certificates\"\n client_cert=\"/etc/client.pem\"\n"
     " private_key=\"/etc/client.key\"\n private_key_passwd=\"key password\"\n"
     " phase1=\"include_tls_length=1\"\n phase2=\"autheap=TLS\"\n ca_cert2=\"/etc/ca2.pem\"\n"
     " ca_path2=\"/etc/certificates2\"\n client_cert2=\"/etc/client2.pem\"\n"
     " private_key2=\"/etc/client2.key\"\n private_key2_passwd=\"other password\""},
    {"many methods", "key_mgmt=WPA-EAP\n eap=GTC PEAP TLS\n identity=\"bob\""},
    {"hidden", "scan_ssid=1\n key_mgmt=NONE"},
    {"disabled", "disabled=1\n key_mgmt=NONE"},
    {"one access point", "bssid=02:11:22:33:44:55\n key_mgmt=NONE\n priority=3"},
    {"ad hoc", "mode=1\n frequency=2412\n key_mgmt=NONE"},
    {"open or shared", "key_mgmt=NONE\n auth_alg=OPEN SHARED"},
    {"LEAP", "key_mgmt=IEEE8021X\n eap=LEAP\n auth_alg=LEAP"},
    {"text with a quote in it", "key_mgmt=WPA-EAP\n eap=PEAP\n identity=\"Bob \"the builder\" B\""},
    {"text in digits", "key_mgmt=WPA-EAP\n eap=PEAP\n identity=c3a9"},
    {"a long path", "key_mgmt=WPA-EAP\n eap=TLS\n identity=\"b\"\n ca_cert=\"/a/path/with/more/"
                    "characters/than/a/line/has/room/for/a/path/with/more/characters/than/a/line/"
                    "has/room/for/a/path/with/more/characters/ca.pem\""},
};

std::string networksOfAllKinds() {
    std::string text;
    for (const Kind& kind : KINDS)
        text += network(std::string("ssid=\"") + kind.name + "\"\n " + kind.fields);
    return text;
}

using Loading = test::SettingsTest;

TEST_F(Loading, TakesEveryFieldOfEveryKindOfNetwork) {
    load(networksOfAllKinds(), "ssid=open");
    EXPECT_THAT(loadedSsids(), SizeIs(std::size(KINDS)));
    expectAllAsConfigured();
}

// With constant values, because expectedRecords() could make the same mistake as the library.
// LOAD-5
TEST_F(Loading, TakesWhatIsConfigured) {
    load(
        openNetworks({"open"}) +
        network("ssid=\"office\"\n proto=RSN\n key_mgmt=WPA-EAP\n pairwise=CCMP\n group=CCMP TKIP\n"
                " eap=TTLS\n identity=\"bob\"\n password=\"secret\"\n phase2=\"auth=PAP\"\n"
                " bssid=02:11:22:33:44:55\n priority=7\n scan_ssid=1\n disabled=1") +
        network("ssid=\"old\"\n key_mgmt=NONE\n wep_key2=\"abcde\"\n wep_tx_keyidx=2\n"
                " auth_alg=SHARED"));
    const test::Record office{
        {"id", "1"},         {"status", "5"},       {"bssid", "02:11:22:33:44:55"},
        {"mode", "0"},       {"priority", "7"},     {"key_mgmt", "4"},
        {"psk", "not set"},  {"pairwise", "4"},     {"group", "6"},
        {"proto", "2"},      {"eap", "4"},          {"auth_alg", "0"},
        {"identity", "bob"}, {"password", "*"},     {"phase2", "auth=PAP"},
        {"broadcast", "0"},  {"wep_tx_keyidx", "0"}};
    for (const auto& [field, value] : office)
        EXPECT_EQ(loaded("office", field), value) << field;
    EXPECT_EQ(loaded("old", "wep_key2"), "*");
    EXPECT_EQ(loaded("old", "wep_tx_keyidx"), "2");
    EXPECT_EQ(loaded("old", "auth_alg"), "2");
    EXPECT_EQ(loaded("open", "status"), "3") << "connected";
    EXPECT_EQ(loaded("old", "status"), "1") << "enabled";
}

const char* const ODD_SSIDS[] = {
    "\"plain\"",
    "P\"a\\ttab\"",
    "P\"\\\"quoted\\\"\"",
    "P\"back\\\\slash\"",
    "\"\xc3\xa9t\xc3\xa9\"",
    "P\"unprintable \\x01\\x7f\"",
    "\"any\"",
    "\"[DISABLED]\"",
    "\" blanks \"",
    "\"01234567890123456789012345678901\"", // as long as an SSID can be
    "ff0102fe",
};

TEST_F(Loading, TakesOddSsidsAsTheClientPrintsThem) {
    std::string text;
    for (const char* const ssid : ODD_SSIDS)
        text += network(std::string("ssid=") + ssid + "\n key_mgmt=NONE");
    load(text);
    expectAllAsConfigured();
    EXPECT_THAT(loadedSsids(),
                ElementsAre("\\xff\\x01\\x02\\xfe", "01234567890123456789012345678901", " blanks ",
                            "[DISABLED]", "SSID N/A", "unprintable \\x01\\x7f",
                            "\\xc3\\xa9t\\xc3\\xa9", "back\\\\slash", "\\\"quoted\\\"", "a\\ttab",
                            "plain"));
}

// LOAD-8
TEST_F(Loading, TakesAnSsidWithAColonForABssid) {
    load(openNetworks({"open", "a:b"}));
    expectAllAsConfigured();
    EXPECT_THAT(loadedSsids(), ElementsAre("SSID N/A", "open"));
    EXPECT_EQ(loaded("SSID N/A", "id"), "1");
}

// Its line arrives in two pieces, and the second looks like the line of a network without an SSID.
TEST_F(Loading, TakesTheLongestSsidWhole) {
    std::string ssid;
    std::string printed;
    for (int i = 0; i < 32; ++i) {
        ssid += "ff";
        printed += "\\xff";
    }
    load(openNetworks({"open"}) + network("ssid=" + ssid + "\n key_mgmt=NONE") +
         openNetworks({"last"}));
    expectAllAsConfigured();
    EXPECT_THAT(loadedSsids(), ElementsAre("last", printed, "open"));
    EXPECT_EQ(loaded(printed, "id"), "1");
}

TEST_F(Loading, NamesANetworkWithoutSsid) {
    load(openNetworks({"open"}) + network("key_mgmt=NONE\n disabled=1\n priority=4"));
    expectAllAsConfigured();
    EXPECT_EQ(loaded("SSID N/A", "id"), "1");
    EXPECT_EQ(loaded("SSID N/A", "priority"), "4");
}

TEST_F(Loading, KeepsTheFirstOfTwoNetworksWithOneSsid) {
    load(openNetworks({"first"}) + network("ssid=\"twin\"\n key_mgmt=NONE\n priority=0") +
         network("ssid=\"twin\"\n psk=\"12345678\"\n disabled=1"));
    expectAllAsConfigured();
    EXPECT_THAT(loadedSsids(), ElementsAre("twin", "first"));
    EXPECT_EQ(loaded("twin", "id"), "1");
}

TEST_F(Loading, TakesThe32NetworksListedFirstAndPutsTheLastOfThemInFront) {
    test::Lines ssids;
    for (int i = 0; i < 40; ++i)
        ssids.push_back("net " + std::to_string(i));
    load(openNetworks(ssids), "ssid=net 0");
    test::Lines expected(ssids.rend() - 32, ssids.rend());
    EXPECT_EQ(loadedSsids(), expected);
    expectAllAsConfigured();
}

TEST_F(Loading, CountsTheSecondOfTwoNetworksWithOneSsidAmongThe32) {
    test::Lines ssids{"twin", "twin"};
    for (int i = 2; i < 40; ++i)
        ssids.push_back("net " + std::to_string(i));
    load(openNetworks(ssids), "ssid=twin");
    EXPECT_THAT(loadedSsids(), SizeIs(31));
    EXPECT_EQ(loadedSsids().front(), "net 31");
    expectAllAsConfigured();
}

TEST_F(Loading, OfNoNetworkIsNoFailure) {
    load("", "wpa_state=INACTIVE");
    EXPECT_THAT(loadedSsids(), IsEmpty());
    EXPECT_TRUE(settings().addNetwork(test::WLAN, "new"));
}

TEST_F(Loading, ShowsNoConnectedNetworkAfterADisconnection) {
    load(openNetworks({"home", "work"}));
    ASSERT_THAT(supplicant.ask("disconnect"), ElementsAre("OK"));
    supplicant.awaitStatus("wpa_state=DISCONNECTED");
    settings().refreshAllSettings();
    expectAllAsConfigured();
    EXPECT_EQ(loaded("home", "status"), "1");
}

} // namespace
