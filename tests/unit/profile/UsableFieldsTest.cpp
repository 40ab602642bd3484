// Which fields a load asks for under each profile, and what becomes of those that it leaves out.

#include "ProfiledHost.h"

#include "model/NetworkFields.h"
#include "model/WifiNetwork.h"
#include "settings/replies/NetworkKeys.h"
#include "support/UseProfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

using namespace platwifi;
using test::DEVICE;
using test::MODERN;
using test::ProfiledHost;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

constexpr const char* HEADER = "network id / ssid / bssid / flags\n";

using Texts = std::vector<std::string>;
using Values = std::map<std::string, std::string>;

Texts wordsOf(const std::string& text) {
    Texts words;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        words.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return words;
}

Texts keysAskedFor(Profile profile, const Values& values) {
    const test::UseProfile use(profile);
    Texts keys;
    WifiNetwork network;
    readNetworkKeys(network, [&](const char* key) -> const char* {
        keys.emplace_back(key);
        const auto found = values.find(key);
        return found == values.end() ? nullptr : found->second.c_str();
    });
    return keys;
}

#define FIRST "mode priority key_mgmt "
#define CIPHERS "pairwise group proto "
#define WEP "wep_tx_keyidx wep_key0 wep_key1 wep_key2 wep_key3 "
#define IDENTITY "identity anonymous_identity "
#define CERTIFICATES "ca_cert ca_path client_cert private_key "
#define INNER "ca_cert2 ca_path2 client_cert2 private_key2 "

constexpr const char* PSK_KEYS = FIRST "psk ieee80211w " CIPHERS "auth_alg scan_ssid";
constexpr const char* SAE_KEYS = FIRST "psk sae_password ieee80211w " CIPHERS "auth_alg scan_ssid";
constexpr const char* TUNNEL_KEYS = FIRST "ieee80211w " CIPHERS "eap auth_alg scan_ssid " IDENTITY
                                          "password " CERTIFICATES "phase1 phase2";
constexpr const char* INNER_KEYS = FIRST "ieee80211w " CIPHERS "eap auth_alg scan_ssid " IDENTITY
                                         "password " CERTIFICATES "phase1 phase2 " INNER;
constexpr const char* TLS_KEYS =
    FIRST "ieee80211w " CIPHERS "eap auth_alg scan_ssid " IDENTITY CERTIFICATES "phase1";
constexpr const char* ALL_BUT_WEP =
    FIRST "psk sae_password ieee80211w " CIPHERS "eap auth_alg scan_ssid " IDENTITY
          "password " CERTIFICATES "phase1 phase2 " INNER;

struct Kind {
    Values values;
    const char* keys; // under the profile `modern`
};

// PROFILE-22, READ-1, READ-2, READ-3, READ-4, READ-5, READ-6, READ-7
TEST(UsableFields, AreTheOnlyOnesThatALoadAsksFor) {
    const Kind kinds[] = {
        {{{"key_mgmt", "NONE"}, {"wep_tx_keyidx", "0"}}, FIRST CIPHERS "auth_alg " WEP "scan_ssid"},
        {{{"key_mgmt", "OWE"}}, FIRST "ieee80211w " CIPHERS "auth_alg scan_ssid"},
        {{{"key_mgmt", "WPA-NONE"}}, FIRST "psk " CIPHERS "auth_alg scan_ssid"},
        {{{"key_mgmt", "WPA-PSK"}}, PSK_KEYS},
        {{{"key_mgmt", "WPA-PSK-SHA256"}}, PSK_KEYS},
        {{{"key_mgmt", "FT-PSK"}}, PSK_KEYS},
        {{{"key_mgmt", "SAE"}}, SAE_KEYS},
        {{{"key_mgmt", "FT-SAE"}}, SAE_KEYS},
        {{{"key_mgmt", "WPA-PSK SAE"}}, SAE_KEYS},
        {{{"key_mgmt", "IEEE8021X"}, {"eap", "MD5"}, {"wep_tx_keyidx", "0"}},
         FIRST CIPHERS "eap auth_alg " WEP "scan_ssid " IDENTITY "password " CERTIFICATES
                       "phase1 phase2"},
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "PEAP"}, {"phase2", "auth=MSCHAPV2"}}, TUNNEL_KEYS},
        {{{"key_mgmt", "WPA-EAP-SHA256"}, {"eap", "TTLS"}, {"phase2", "auth=PAP"}}, TUNNEL_KEYS},
        {{{"key_mgmt", "FT-EAP"}, {"eap", "FAST"}, {"phase2", "autheap=GTC"}}, TUNNEL_KEYS},
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "MD5 LEAP"}}, TUNNEL_KEYS},
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "PEAP"}}, INNER_KEYS},
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "TTLS"}, {"phase2", "auth=GTC"}}, INNER_KEYS},
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "TTLS"}, {"phase2", "autheap=MD5 autheap=TLS"}},
         INNER_KEYS},
        {{{"key_mgmt", "WPA-EAP"}}, INNER_KEYS},
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "TLS PWD"}}, INNER_KEYS}, // a method without a number
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "TLS"}}, TLS_KEYS},
        {{{"key_mgmt", "WPA-EAP-SUITE-B-192"}, {"eap", "TLS"}}, TLS_KEYS},
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "TLS"}, {"private_key", "/key"}},
         FIRST "ieee80211w " CIPHERS "eap auth_alg scan_ssid " IDENTITY CERTIFICATES
               "private_key_passwd phase1"},
        {{{"key_mgmt", "WPA-EAP"}, {"eap", "PEAP"}, {"private_key2", "/key"}},
         FIRST "ieee80211w " CIPHERS "eap auth_alg scan_ssid " IDENTITY "password " CERTIFICATES
               "phase1 phase2 " INNER "private_key2_passwd"},
        {{{"key_mgmt", "WPA-PSK WPA-EAP"}, {"eap", "PEAP"}, {"phase2", "auth=MSCHAPV2"}},
         FIRST "psk ieee80211w " CIPHERS "eap auth_alg scan_ssid " IDENTITY "password " CERTIFICATES
               "phase1 phase2"},
        {{{"key_mgmt", "WPA-PSK FILS-SHA256"}}, ALL_BUT_WEP}, // a method without a number
        {{{"key_mgmt", "WPS"}}, ALL_BUT_WEP},
        {{},
         FIRST "psk ieee80211w " CIPHERS "eap auth_alg scan_ssid " IDENTITY "password " CERTIFICATES
               "phase1 phase2 " INNER}, // the default: WPA-PSK WPA-EAP
    };
    for (const Kind& kind : kinds) {
        const auto methods = kind.values.find("key_mgmt");
        EXPECT_THAT(keysAskedFor(MODERN, kind.values), ElementsAreArray(wordsOf(kind.keys)))
            << (methods == kind.values.end() ? "no key management" : methods->second);
    }
}

// PROFILE-22
TEST(UsableFields, AreAllFieldsOnTheDevice) {
    const char* const keys =
        "disabled bssid mode priority key_mgmt psk pairwise group proto eap auth_alg scan_ssid "
        "identity "
        "anonymous_identity password private_key_passwd ca_cert ca_path client_cert private_key "
        "phase1 "
        "phase2 private_key_passwd2 ca_cert2 ca_path2 client_cert2 private_key2";
    for (const char* const method : {"WPA-PSK", "WPA-EAP", "SAE"})
        EXPECT_THAT(keysAskedFor(DEVICE, {{"key_mgmt", method}}), ElementsAreArray(wordsOf(keys)));
}

// A network with fields that its security does not use. Each value that is not here is not set.
class Leftovers : public testing::Test {
protected:
    explicit Leftovers(Profile profile = MODERN) : host(profile) {}

    using Value = std::pair<const char*, const char*>;

    WifiNetwork& load(const std::vector<Value>& fields) {
        for (const auto& [key, value] : fields)
            host.on({"get_network", "0", key}).prints(value);
        host.on({"get_network", "0", "*"}).prints("FAIL\n");
        host.has("home");
        host.load();
        m_seen = host.standIn.calls().size();
        return host.network("home");
    }

    // The commands since the load or the last call of this function, joined by blanks.
    Texts commands() {
        const auto calls = host.standIn.calls();
        Texts commands;
        for (; m_seen < calls.size(); ++m_seen) {
            std::string command;
            for (std::size_t i = 2; i < calls[m_seen].size(); ++i)
                command += (i == 2 ? "" : " ") + calls[m_seen][i];
            commands.push_back(command);
        }
        return commands;
    }

    Texts saved() {
        EXPECT_EQ(WifiHostSettings::getInstance(nullptr)->saveNetworkSettings(), 1);
        return host.changes();
    }

    // The supplicant does not answer the second request for its list.
    void missSecondList() {
        const std::string list = std::string(HEADER) + "0\thome\tany\t\n";
        host.on({"list_networks"}).prints(list).then().exits(1).then().prints(list);
    }

    ProfiledHost host;

private:
    std::size_t m_seen = 0;
};

using UnreadFields = Leftovers;

// READ-8, READ-10
TEST_F(UnreadFields, AreReadOnceTheKeyManagementUsesThem) {
    WifiNetwork& home = load({{"key_mgmt", "WPA-PSK"},
                              {"psk", "*"},
                              {"eap", "PEAP"},
                              {"identity", "\"bob\""},
                              {"phase2", "\"auth=MSCHAPV2\""}});
    EXPECT_EQ(home.getEAPIdentity(), nullptr);
    EXPECT_EQ(home.getEapModes(), 0U);
    home.setPsk("long enough");
    home.setPriority(3);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(home.setKeyManagement(KEY_MGMT_WPA_EAP));
    Texts expected{"list_networks"};
    for (const char* const key : {"eap", "identity", "anonymous_identity", "password", "ca_cert",
                                  "ca_path", "client_cert", "private_key", "phase1", "phase2"})
        expected.push_back(std::string("get_network 0 ") + key);
    EXPECT_THAT(commands(), ElementsAreArray(expected));
    EXPECT_STREQ(home.getEAPIdentity(), "bob");
    EXPECT_STREQ(home.getPhase2Step(), "auth=MSCHAPV2");
    EXPECT_EQ(home.getEapModes(), EAP_PEAP + 0U);
    EXPECT_EQ(NetworkFields::of(home).dirtyFields(),
              setOf(Field::PSK, Field::PRIORITY, Field::KEY_MANAGEMENT));
    home.setKeyManagement(KEY_MGMT_WPA_PSK);
    home.setKeyManagement(KEY_MGMT_WPA_EAP);
    EXPECT_THAT(commands(), IsEmpty()) << "they are known now";
    EXPECT_THAT(saved(),
                ElementsAre("set_network 0 key_mgmt WPA-EAP", "set_network 0 priority 3",
                            "set_network 0 psk \"long enough\"", "save_config", "reconfigure"));
}

// READ-10
TEST_F(UnreadFields, OfEveryOtherChoiceAreReadToo) {
    WifiNetwork& home = load({{"key_mgmt", "WPA-EAP"},
                              {"eap", "TLS"},
                              {"phase2", "\"auth=MSCHAPV2\""},
                              {"password", "*"},
                              {"private_key_passwd", "*"},
                              {"private_key2", "\"/key2\""},
                              {"private_key2_passwd", "*"},
                              {"ieee80211w", "2"},
                              {"wep_tx_keyidx", "1"},
                              {"wep_key1", "*"}});
    EXPECT_EQ(home.getPrivateKeyPassword(), nullptr);
    home.setPrivateKeyFile("/key");
    EXPECT_STREQ(home.getPrivateKeyPassword(), "*");
    EXPECT_EQ(home.getEAPPassword(), nullptr);
    home.setEapModes(EAP_PEAP);
    EXPECT_STREQ(home.getEAPPassword(), "*");
    EXPECT_EQ(home.getPrivateKeyFile2(), nullptr);
    home.setPhase2Step("auth=TLS");
    EXPECT_STREQ(home.getPrivateKeyFile2(), "/key2");
    EXPECT_STREQ(home.getPrivateKeyPassword2(), "*");
    EXPECT_EQ(home.getWepKey(1), nullptr);
    home.setKeyManagement(KEY_MGMT_NONE);
    EXPECT_STREQ(home.getWepKey(1), "*");
    EXPECT_EQ(home.getWepIndex(), 1U);
    EXPECT_FALSE(home.getWepKeyDirty(1));
}

// READ-10
TEST_F(UnreadFields, OfTheFramesAreReadBeforeTheyAreProtected) {
    WifiNetwork& home = load({{"key_mgmt", "NONE"}, {"ieee80211w", "1"}});
    EXPECT_EQ(home.getPmf(), PMF_DEFAULT + 0U);
    home.setKeyManagement(KEY_MGMT_SAE);
    EXPECT_THAT(saved(), ElementsAre("set_network 0 key_mgmt SAE", "save_config", "reconfigure"));
    EXPECT_EQ(home.getPmf(), PMF_OPTIONAL + 0U);
}

// READ-9
TEST_F(UnreadFields, AreComparedWithWhatTheSupplicantHas) {
    WifiNetwork& home =
        load({{"key_mgmt", "WPA-PSK"}, {"identity", "\"bob\""}, {"ca_cert", "\"/ca\""}});
    EXPECT_FALSE(home.setEAPIdentity("bob"));
    EXPECT_STREQ(home.getEAPIdentity(), "bob");
    EXPECT_FALSE(home.setEAPPassword(""));
    EXPECT_FALSE(home.getNetworkDirty());
    EXPECT_TRUE(home.setCACertificate(""));
    EXPECT_THAT(saved(), ElementsAre("set_network 0 ca_cert NULL", "save_config", "reconfigure"));
}

// READ-12
TEST_F(UnreadFields, ThatWereSetAreNotReadOverTheValue) {
    WifiNetwork& home = load(
        {{"key_mgmt", "WPA-PSK"}, {"psk", "*"}, {"identity", "\"bob\""}, {"sae_password", "*"}});
    home.setEAPIdentity("eve");
    home.setPsk("long enough");
    home.setKeyManagement(KEY_MGMT_WPA_EAP | KEY_MGMT_SAE);
    EXPECT_STREQ(home.getEAPIdentity(), "eve");
    EXPECT_STREQ(home.getPsk(), "long enough");
}

// READ-9
TEST_F(UnreadFields, AreReadBeforeACallerMarksThem) {
    WifiNetwork& home = load({{"key_mgmt", "WPA-PSK"}, {"identity", "\"bob\""}});
    home.setEAPIdentityDirty(true);
    EXPECT_THAT(saved(),
                ElementsAre("set_network 0 identity \"bob\"", "save_config", "reconfigure"));
}

// READ-9
TEST_F(UnreadFields, ThatCannotBeReadAreWrittenAsTheyAreSet) {
    missSecondList();
    WifiNetwork& home = load({{"key_mgmt", "WPA-PSK"}, {"identity", "\"bob\""}});
    EXPECT_TRUE(home.setEAPIdentity("")) << "the supplicant may have a value";
    EXPECT_THAT(saved(), ElementsAre("set_network 0 identity NULL", "save_config", "reconfigure"));
}

// READ-10
TEST_F(UnreadFields, StayUnreadWhileTheSupplicantDoesNotAnswer) {
    missSecondList();
    WifiNetwork& home = load({{"key_mgmt", "WPA-PSK"}, {"identity", "\"bob\""}});
    home.setKeyManagement(KEY_MGMT_WPA_EAP);
    EXPECT_EQ(home.getEAPIdentity(), nullptr);
    home.setPriority(3);
    EXPECT_STREQ(home.getEAPIdentity(), "bob") << "with the next change";
}

// READ-10
TEST_F(UnreadFields, AreReadAgainAfterAKilledClient) {
    host.on({"get_network", "0", "ca_cert"}).hangs().then().prints("\"/ca\"");
    WifiNetwork& home = load({{"key_mgmt", "WPA-PSK"}, {"phase1", "\"peapver=0\""}});
    home.setKeyManagement(KEY_MGMT_WPA_EAP);
    EXPECT_EQ(commands().back(), "get_network 0 ca_cert") << "no command follows";
    home.setPriority(3);
    EXPECT_STREQ(home.getCACertificate(), "/ca");
    EXPECT_STREQ(home.getPhase1Step(), "peapver=0");
}

// READ-11
TEST_F(UnreadFields, AreThoseOfTheNetworkThatHasTheSsidNow) {
    host.on({"list_networks"})
        .prints(std::string(HEADER) + "0\thome\tany\t\n")
        .then()
        .prints(std::string(HEADER) + "0\twork\tany\t\n1\thome\tany\t\n");
    host.on({"get_network", "1", "identity"}).prints("\"ann\"");
    host.on({"get_network", "1", "*"}).prints("FAIL\n");
    WifiNetwork& home = load({{"key_mgmt", "WPA-PSK"}, {"identity", "\"bob\""}});
    home.setKeyManagement(KEY_MGMT_WPA_EAP);
    EXPECT_STREQ(home.getEAPIdentity(), "ann");
}

class UnreadFieldsOfTheDevice : public Leftovers {
protected:
    UnreadFieldsOfTheDevice() : Leftovers(DEVICE) {}
};

// PROFILE-22
TEST_F(UnreadFieldsOfTheDevice, DoNotExist) {
    WifiNetwork& home = load({{"key_mgmt", "WPA-PSK"}, {"identity", "\"bob\""}});
    EXPECT_STREQ(home.getEAPIdentity(), "bob");
    home.setKeyManagement(KEY_MGMT_WPA_EAP);
    home.setWepKey(0, "abcde");
    home.setEAPPasswordDirty(true);
    EXPECT_THAT(commands(), IsEmpty());
}

// PROFILE-22
TEST(UsableFields, OfTheListAreStatusAndBssid) {
    ProfiledHost host(MODERN);
    host.has("plain");
    host.has("off", "[DISABLED]");
    host.has("of a group", "[DISABLED][P2P-PERSISTENT]");
    host.has("suspended", "[TEMP-DISABLED]");
    host.has("pinned", "", "02:00:00:00:00:01");
    for (const char* const id : {"0", "1", "2", "3", "4"})
        host.on({"get_network", id, "key_mgmt"}).prints("OWE");
    host.load();
    const std::vector<std::pair<const char*, unsigned int>> rows = {
        {"plain", NETWORK_STATUS_ENABLED},
        {"off", NETWORK_STATUS_DISABLED},
        {"of a group", NETWORK_STATUS_DISABLED},
        {"suspended", NETWORK_STATUS_ENABLED},
    };
    for (const auto& [ssid, status] : rows) {
        EXPECT_EQ(host.network(ssid).getNetworkStatus(), status) << ssid;
        EXPECT_STREQ(host.network(ssid).getBssid(), "00:00:00:00:00:00") << ssid;
    }
    EXPECT_STREQ(host.network("pinned").getBssid(), "02:00:00:00:00:01");
}

} // namespace
