// The rules of the profiles that a supplicant shows. The program runs once under each profile.

#include "SettingsTest.h"
#include "WatchedClient.h"
#include "jni/ServiceFunctions.h"
#include "support/Leftovers.h"

#include <algorithm>
#include <cstdlib>

using test::openNetworks;
using test::WLAN;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

namespace {

bool isModern() {
    const char* const name = std::getenv("PLATWIFI_PROFILE");
    return name && std::string(name) == "modern";
}

class Profiles : public test::SettingsTest {
protected:
    // What the profile of this process does.
    template <typename Value>
    static Value either(Value device, Value modern) {
        return isModern() ? modern : device;
    }

    static const WifiNetwork* find(const std::string& ssid) {
        const platwifi::SettingsLock lock(settings());
        return settings().getNetwork(WLAN, ssid.c_str());
    }

    void expectInFile(const char* line, bool is = true) const {
        if (is)
            EXPECT_THAT(supplicant.file(), Contains(line));
        else
            EXPECT_THAT(supplicant.file(), Not(Contains(line)));
    }
};

// PROFILE-1, PROFILE-2
TEST_F(Profiles, AreChosenByTheEnvironment) {
    settings();
    EXPECT_EQ(setWifiProfile(nullptr, "modern"), isModern() ? 1 : 0);
    EXPECT_EQ(setWifiProfile(nullptr, "device"), isModern() ? 0 : 1);
}

// PROFILE-3
TEST_F(Profiles, DifferInWhatIsAName) {
    load(openNetworks({"home", "Cafe: upstairs", "any", " leading blank", "-guest"}));
    for (const char* const name : {"home", " leading blank", "-guest"})
        EXPECT_NE(find(name), nullptr) << name;
    for (const char* const name : {"Cafe: upstairs", "any"})
        EXPECT_EQ(find(name) != nullptr, isModern()) << name;
}

// PROFILE-5
TEST_F(Profiles, DifferInTheTextOfAName) {
    const std::string emoji = "\U0001F600\U0001F601\U0001F602\U0001F603";
    load("network={\n\tssid=f09f9880f09f9881f09f9882f09f9883\n\tkey_mgmt=NONE\n}\n"
         "network={\n\tssid=" +
         std::string(64, 'd') + "\n\tkey_mgmt=NONE\n}\n");
    EXPECT_EQ(find(emoji) != nullptr, isModern());
    EXPECT_EQ(find(std::string(32, '\xdd')) != nullptr, isModern());
    EXPECT_NE(
        find("\\xf0\\x9f\\x98\\x80\\xf0\\x9f\\x98\\x81\\xf0\\x9f\\x98\\x82\\xf0\\x9f\\x98\\x83"),
        nullptr)
        << "as the client prints it";
}

// PROFILE-5
TEST_F(Profiles, SendNamesThatComeBack) {
    const std::string names[] = {"Kim's \"Caf\u00e9\" \\ x=1", "Cafe: upstairs",
                                 std::string(32, '\xd0')};
    load(openNetworks({"home"}));
    for (const std::string& name : names) {
        if (isModern()) {
            addOpen(name);
            EXPECT_EQ(settings().saveNetworkSettings(), 1);
        }
    }
    settings().refreshAllSettings();
    for (const std::string& name : names)
        EXPECT_EQ(find(name) != nullptr, isModern()) << name;
    EXPECT_EQ(configuredSsids().size(), isModern() ? 4U : 1U);
    EXPECT_THAT(supplicant.file(), Contains("\tssid=\"home\"")) << "the neighbour";
}

// PROFILE-4
TEST_F(Profiles, DifferInHowManyNetworksAreLoaded) {
    test::Lines ssids;
    for (int i = 0; i < 40; ++i)
        ssids.push_back("network-" + std::to_string(i));
    load(openNetworks(ssids));
    EXPECT_EQ(loadedSsids().size(), either<std::size_t>(32, 40));
    load(openNetworks({"home"}));
}

// PROFILE-10, PROFILE-11
TEST_F(Profiles, DifferInTheSecurityThatIsSaved) {
    load(openNetworks({"home", "work"}));
    change("home", [](WifiNetwork& network) {
        network.setKeyManagement(KEY_MGMT_SAE);
        return network.setPsk(isModern() ? "short" : "long enough");
    });
    change("work", [](WifiNetwork& network) {
        network.setKeyManagement(KEY_MGMT_WPA_EAP);
        return network.setEapModes(EAP_PEAP | EAP_TTLS);
    });
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    expectInFile("\tkey_mgmt=SAE", isModern());
    expectInFile("\tsae_password=\"short\"", isModern());
    expectInFile("\tieee80211w=2", isModern());
    expectInFile("\teap=PEAP TTLS", isModern());
    settings().refreshAllSettings();
    EXPECT_EQ(loaded("home", "key_mgmt"), either<std::string>("1", "32"));
}

// PROFILE-12
TEST_F(Profiles, DifferInAClearedText) {
    load("network={\n\tssid=\"work\"\n\tkey_mgmt=IEEE8021X\n\teap=PEAP\n\tca_cert=\"/ca.pem\"\n"
         "\tbssid=02:00:00:00:00:01\n}\n",
         "");
    change("work", [](WifiNetwork& network) {
        network.setBssid("any");
        return network.setCACertificate(nullptr);
    });
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(supplicant.file(), Not(Contains("\tca_cert=\"/ca.pem\"")));
    expectInFile("\tca_cert=\"\"", !isModern());
    EXPECT_THAT(supplicant.file(), Not(Contains("\tbssid=02:00:00:00:00:01")));
}

// PROFILE-13
TEST_F(Profiles, DifferInThePasswordOfTheInnerKey) {
    load("network={\n\tssid=\"work\"\n\tkey_mgmt=IEEE8021X\n\teap=TTLS\n}\n", "");
    change("work", [](WifiNetwork& network) { return network.setPrivateKeyPassword2("inner"); });
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    expectInFile("\tprivate_key2_passwd=\"inner\"", isModern());
}

// PROFILE-14
TEST_F(Profiles, DifferInASaveWithARefusedField) {
    load(openNetworks({"home"}));
    const test::Lines before = supplicant.file();
    change("home", [](WifiNetwork& network) {
        network.setPriority(7);
        return network.setPsk("short");
    });
    ErrorHandler errors;
    EXPECT_EQ(settings().saveNetworkSettings(&errors), isModern() ? 0 : 1);
    expectInFile("\tpriority=7", !isModern());
    if (isModern()) {
        ASSERT_NE(errors.savedError(), nullptr);
        EXPECT_THAT(errors.savedError()->text(), HasSubstr("refused the field psk"));
        EXPECT_THAT(errors.savedError()->text(), Not(HasSubstr("short")));
        EXPECT_EQ(supplicant.file(), before);
        EXPECT_EQ(supplicant.ask("get_network 0 priority"), test::Lines{"0"}) << "taken back";
        change("home", [](WifiNetwork& network) { return network.setPsk("long enough"); });
        EXPECT_EQ(settings().saveNetworkSettings(), 1);
        expectInFile("\tpriority=7");
    }
}

// PROFILE-17
TEST_F(Profiles, DifferInTheOtherNetworksAfterAConnection) {
    load(openNetworks({"home", "work", "guest"}));
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    supplicant.awaitStatus("ssid=work");
    supplicant.awaitStatus("wpa_state=COMPLETED");
    EXPECT_EQ(settings().getCurrentStatus(WLAN), WPA_STATE_COMPLETED + 0U);
    EXPECT_EQ(supplicant.ask("get_network 0 disabled"), test::Lines{either("1", "0")});
    changePriority("work", 2);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    expectInFile("\tdisabled=1", !isModern());
}

// PROFILE-17
TEST_F(Profiles, DifferInAConnectionThatIsGivenUp) {
    load(openNetworks({"home", "work"}));
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    EXPECT_TRUE(settings().disconnectNetwork(WLAN, "work"));
    EXPECT_EQ(supplicant.ask("get_network 0 disabled"), test::Lines{either("1", "0")});
}

// A kind of network, and how many fields are asked for.
struct Kind {
    const char* name;
    const char* fields; // in the configuration file
    std::size_t device;
    std::size_t modern;
};

const Kind KINDS[] = {
    {"open", "key_mgmt=NONE\n priority=9", 32, 13},
    {"one access point", "key_mgmt=NONE\n bssid=02:11:22:33:44:55", 32, 13},
    {"disabled", "key_mgmt=NONE\n disabled=1", 32, 13},
    {"WPA2-PSK", "proto=RSN\n key_mgmt=WPA-PSK\n pairwise=CCMP\n group=CCMP\n psk=\"12345678\"", 27,
     10},
    {"hidden WPA1",
     "proto=WPA\n key_mgmt=WPA-PSK\n pairwise=TKIP\n group=TKIP\n psk=\"12345678\"\n"
     " scan_ssid=1\n disabled=2",
     27, 10},
    {"WEP",
     "key_mgmt=NONE\n wep_key0=\"abcde\"\n wep_key1=0123456789\n"
     " wep_tx_keyidx=1\n auth_alg=SHARED",
     32, 13},
    {"dynamic WEP", "key_mgmt=IEEE8021X\n eap=TLS\n identity=\"bob\"\n private_key=\"/key\"", 32,
     22},
    {"PEAP",
     "proto=RSN\n key_mgmt=WPA-EAP\n eap=PEAP\n identity=\"bob\"\n anonymous_identity=\"x\"\n"
     " password=\"secret\"\n ca_cert=\"/ca\"\n phase1=\"peapver=0\"\n phase2=\"auth=MSCHAPV2\"",
     27, 19},
    {"TTLS",
     "key_mgmt=WPA-EAP\n eap=TTLS\n identity=\"bob\"\n password=\"secret\"\n ca_path=\"/ca\"\n"
     " phase2=\"auth=PAP\"",
     27, 19},
    {"TLS inside of TTLS",
     "key_mgmt=WPA-EAP\n eap=TTLS\n identity=\"bob\"\n phase2=\"autheap=TLS\"\n"
     " ca_cert2=\"/ca2\"\n ca_path2=\"/ca2s\"\n client_cert2=\"/cert2\"\n private_key2=\"/key2\"",
     27, 24},
    {"TLS",
     "key_mgmt=WPA-EAP\n eap=TLS\n identity=\"Bob \"the builder\" B\"\n ca_cert=\"/ca\"\n"
     " client_cert=\"/cert\"\n private_key=\"/key\"\n private_key_passwd=\"secret\"",
     27, 18},
    {"any EAP", "key_mgmt=WPA-EAP\n identity=\"bob\"\n password=\"secret\"", 27, 23},
};

std::string networksOf(const std::vector<std::string>& fields) {
    std::string text;
    for (const std::string& each : fields)
        text += "network={\n " + each + "\n}\n";
    return text;
}

// PROFILE-22: all values are as the host's client prints them.
TEST_F(Profiles, DifferInTheFieldsThatALoadAsksFor) {
    std::vector<std::string> fields;
    for (const Kind& kind : KINDS)
        fields.push_back(std::string("ssid=\"") + kind.name + "\"\n " + kind.fields);
    load(networksOf(fields), "ssid=open");
    const test::WatchedClient client;
    settings().refreshAllSettings();
    expectAllAsConfigured();
    const test::Lines commands = client.commands();
    for (std::size_t id = 0; id < std::size(KINDS); ++id) {
        const std::string asked = "-iwlan0 get_network " + std::to_string(id) + " ";
        const auto count =
            std::count_if(commands.begin(), commands.end(),
                          [&](const std::string& command) { return command.rfind(asked, 0) == 0; });
        EXPECT_EQ(static_cast<std::size_t>(count), either(KINDS[id].device, KINDS[id].modern))
            << KINDS[id].name;
    }
}

// PROFILE-22
TEST_F(Profiles, TakeStatusAndBssidOfTheListAsTheyAreConfigured) {
    load(
        networksOf({"ssid=\"current\"\n key_mgmt=NONE", "ssid=\"off\"\n key_mgmt=NONE\n disabled=1",
                    "ssid=\"of a group\"\n key_mgmt=NONE\n disabled=2",
                    "ssid=\"pinned\"\n key_mgmt=NONE\n bssid=02:11:22:33:44:55",
                    "ssid=\"zeros\"\n key_mgmt=NONE\n bssid=00:00:00:00:00:00",
                    "ssid=\"unpinned\"\n key_mgmt=NONE\n bssid=any"}),
        "ssid=current");
    expectAllAsConfigured();
    EXPECT_EQ(loaded("current", "status"), "3");
    for (const char* const name : {"off", "of a group"})
        EXPECT_EQ(loaded(name, "status"), "5") << name;
    EXPECT_EQ(loaded("pinned", "bssid"), "02:11:22:33:44:55");
    EXPECT_EQ(loaded("unpinned", "bssid"), "00:00:00:00:00:00");
    supplicant.ask("disable_network 0");
    supplicant.ask("bssid 5 02:11:22:33:44:66");
    settings().refreshAllSettings();
    expectAllAsConfigured();
    EXPECT_EQ(loaded("unpinned", "bssid"), "02:11:22:33:44:66");
}

constexpr const char* LEFTOVERS =
    "ssid=\"home\"\n key_mgmt=WPA-PSK\n psk=\"12345678\"\n eap=PEAP\n identity=\"bob\"\n"
    " password=\"secret\"\n phase2=\"auth=MSCHAPV2\"\n wep_key0=\"abcde\"";

// READ-8, READ-10
TEST_F(Profiles, KeepAFieldThatTheSecurityDoesNotUse) {
    load(networksOf({LEFTOVERS}), "");
    EXPECT_EQ(loaded("home", "identity"), either<std::string>("bob", "not set"));
    changePriority("home", 3);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    expectInFile("\tidentity=\"bob\"");
    change("home", [](WifiNetwork& network) {
        const bool isChanged = network.setKeyManagement(KEY_MGMT_WPA_EAP);
        EXPECT_STREQ(network.getEAPIdentity(), "bob");
        EXPECT_STREQ(network.getEAPPassword(), "*");
        EXPECT_STREQ(network.getPhase2Step(), "auth=MSCHAPV2");
        EXPECT_EQ(network.getEapModes(), EAP_PEAP + 0U);
        EXPECT_FALSE(network.getEAPIdentityDirty());
        return isChanged;
    });
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    expectInFile("\tidentity=\"bob\"");
    expectInFile("\tkey_mgmt=WPA-EAP");
}

// READ-9
TEST_F(Profiles, ClearAFieldThatTheSecurityDoesNotUse) {
    load(networksOf({LEFTOVERS}), "");
    change("home", [](WifiNetwork& network) {
        EXPECT_FALSE(network.setPhase2Step("auth=MSCHAPV2")) << "no change";
        EXPECT_FALSE(network.setCACertificate("")) << "no change";
        return network.setEAPIdentity("");
    });
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    expectInFile("\tidentity=\"bob\"", false);
    expectInFile("\tphase2=\"auth=MSCHAPV2\"");
}

// PROFILE-21
TEST_F(Profiles, KnowTheIdsAfterASave) {
    load(openNetworks({"home", "work", "guest"}));
    ASSERT_TRUE(settings().removeNetwork(WLAN, "home"));
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    changePriority("guest", 4);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_EQ(supplicant.ask("get_network 1 priority"), test::Lines{"4"});
    EXPECT_EQ(supplicant.ask("get_network 0 priority"), test::Lines{"0"});
}

} // namespace
