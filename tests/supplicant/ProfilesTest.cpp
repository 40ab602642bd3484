// The rules of the profiles that a supplicant shows. The program runs once under each profile.

#include "SettingsTest.h"
#include "jni/ServiceFunctions.h"
#include "support/Leftovers.h"

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
