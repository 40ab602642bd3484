// What loading, saving and connecting do under each profile.

#include "ProfiledHost.h"

#include "jni/ServiceFunctions.h"
#include "model/NetworkFields.h"
#include "model/WifiNetwork.h"
#include "platform/ErrorHandler.h"
#include "settings/replies/WholeLines.h"
#include "supplicant/WifiUtil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace platwifi;
using test::DEVICE;
using test::MODERN;
using test::ProfiledHost;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string EMOJI = "\xf0\x9f\x9b\x9c";

// PROFILE-5
TEST(SettingsRules, NetworksAreFoundByTheirBytesAndAsTheyArePrinted) {
    ProfiledHost host(MODERN);
    host.has("\\xf0\\x9f\\x9b\\x9c");
    host.has("a\\\\");
    host.has("a\\\\\\\\");
    WifiHostSettings& settings = host.load();
    EXPECT_THAT(test::ssidsIn(settings), ElementsAre("a\\\\", "a\\", EMOJI));
    EXPECT_STREQ(settings.getNetwork("wlan0", EMOJI.c_str())->getSsid(), EMOJI.c_str());
    EXPECT_STREQ(settings.getNetwork("wlan0", "\\xf0\\x9f\\x9b\\x9c")->getSsid(), EMOJI.c_str());
    EXPECT_STREQ(settings.getNetwork("wlan0", "a\\\\")->getSsid(), "a\\\\")
        << "the bytes go before what is printed";
    EXPECT_EQ(settings.getNetwork("wlan0", "other"), nullptr);
    EXPECT_EQ(settings.getNetwork("wlan0", nullptr), nullptr);
}

// PROFILE-5
TEST(SettingsRules, TheCurrentNetworkIsThatOfTheBytes) {
    ProfiledHost host(MODERN);
    host.has("a\\\\");
    host.has("a\\\\\\\\");
    host.status = "wpa_state=COMPLETED\nssid=a\\\\\n";
    EXPECT_STREQ(host.load().getCurrentNetwork("wlan0")->getSsid(), "a\\");
}

// PROFILE-3
TEST(SettingsRules, AnEmptySsidIsNotAdded) {
    {
        ProfiledHost host(MODERN);
        EXPECT_FALSE(host.load().addNetwork("wlan0", ""));
        EXPECT_THAT(host.changes(), IsEmpty());
    }
    ProfiledHost host(DEVICE);
    host.on({"add_network"}).prints("0\n");
    EXPECT_TRUE(host.load().addNetwork("wlan0", ""));
    WifiHostSettings::getInstance(nullptr)->removeNetwork("wlan0", "");
}

// PROFILE-7, PROFILE-8, PROFILE-9
TEST(SettingsRules, AScanReachesTheNetworkOfItsSsidAlone) {
    ProfiledHost host(MODERN);
    host.has("home");
    host.has("home-guest");
    host.scan = "02:00:00:00:00:01\t5180\t-80\t[WPA2-PSK-CCMP][ESS]\thome\n"
                "02:00:00:00:00:02\t2412\t-60\t[WPA2-PSK-CCMP][ESS]\thome\n"
                "02:00:00:00:00:03\t2437\t-40\t[ESS]\thome-guest\n"
                "02:00:00:00:00:04\t2437\t-30\t[ESS]\t\n";
    WifiHostSettings& settings = host.load();
    EXPECT_EQ(host.network("home").getStrength(), 80U) << "the stronger of two access points";
    EXPECT_EQ(host.network("home").getChannel(), 1U);
    EXPECT_EQ(host.network("home-guest").getStrength(), 100U);
    EXPECT_STREQ(host.network("home").getBssid(), "00:00:00:00:00:00");
    EXPECT_FALSE(host.network("home").getNetworkDirty());
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    EXPECT_THAT(host.changes(), IsEmpty()) << "nothing was edited";
}

// PROFILE-10, PROFILE-11
TEST(SettingsRules, TodaysSecurityIsLoadedAndSaved) {
    ProfiledHost host(MODERN);
    host.has("home");
    host.on({"get_network", "0", "key_mgmt"}).prints("WPA-PSK SAE FT-SAE");
    host.on({"get_network", "0", "psk"}).prints("FAIL\n");
    host.on({"get_network", "0", "sae_password"}).prints("*");
    host.on({"get_network", "0", "ieee80211w"}).prints("1");
    host.on({"get_network", "0", "pairwise"}).prints("CCMP GCMP-256");
    host.load();
    WifiNetwork& home = host.network("home");
    EXPECT_EQ(home.getKeyManagement(), KEY_MGMT_WPA_PSK | KEY_MGMT_SAE | KEY_MGMT_FT_SAE);
    EXPECT_EQ(home.getPmf(), PMF_OPTIONAL + 0U);
    EXPECT_STREQ(home.getPsk(), "*");
    EXPECT_EQ(home.getPairwiseCiphers(), PAIRWISE_CCMP | PAIRWISE_GCMP_256);
    home.setKeyManagement(KEY_MGMT_SAE);
    home.setPmf(PMF_REQUIRED);
    home.setPsk("of any length: x");
    home.setPairwiseCiphers(PAIRWISE_CCMP | PAIRWISE_CCMP_256);
    EXPECT_EQ(WifiHostSettings::getInstance(nullptr)->saveNetworkSettings(), 1);
    EXPECT_THAT(host.changes(),
                ElementsAre("set_network 0 key_mgmt SAE", "set_network 0 pairwise CCMP CCMP-256",
                            "set_network 0 sae_password \"of any length: x\"",
                            "set_network 0 ieee80211w 2", "save_config", "reconfigure"));
}

// PROFILE-10
TEST(SettingsRules, CodeOfSeveralCiphers) {
    const auto ciphers = [](Profile profile, const char* code) {
        ProfiledHost host(profile);
        host.has("home");
        host.load();
        const char* const names[] = {"encryption"};
        setNetworkParameters(nullptr, "wlan0", "home", names, &code, 1);
        const WifiNetwork& home = host.network("home");
        return std::make_pair(home.getPairwiseCiphers(), home.getGroupCiphers());
    };
    constexpr unsigned int BOTH = PAIRWISE_CCMP | PAIRWISE_TKIP;
    EXPECT_EQ(ciphers(DEVICE, "6"), std::make_pair(PAIRWISE_CCMP + 0U, GROUP_TKIP + 0U));
    EXPECT_EQ(ciphers(MODERN, "6"), std::make_pair(BOTH, BOTH));
    EXPECT_EQ(ciphers(MODERN, "100"), std::make_pair(0x64U, 0x64U));
    EXPECT_EQ(ciphers(MODERN, "12"), std::make_pair(PAIRWISE_CCMP + 0U, GROUP_CCMP | 0x8U));
    EXPECT_EQ(ciphers(MODERN, "16"), std::make_pair(0U, GROUP_WEP40 + 0U)) << "one kind stays";
}

// PROFILE-11
TEST(SettingsRules, FramesAreProtectedWhereTheMethodNeedsIt) {
    struct {
        unsigned int methods;
        const char* pmf; // what is sent; null for nothing
    } const cases[] = {
        {KEY_MGMT_SAE, "2"},         {KEY_MGMT_OWE, "2"},
        {KEY_MGMT_SUITE_B_192, "2"}, {KEY_MGMT_SAE | KEY_MGMT_WPA_PSK, "1"},
        {KEY_MGMT_WPA_PSK, nullptr},
    };
    for (const auto& each : cases) {
        ProfiledHost host(MODERN);
        host.has("home");
        host.on({"get_network", "0", "ieee80211w"}).prints("3");
        WifiHostSettings& settings = host.load();
        host.network("home").setKeyManagement(each.methods);
        EXPECT_EQ(settings.saveNetworkSettings(), 1);
        const std::string sent = "set_network 0 ieee80211w ";
        if (each.pmf)
            EXPECT_THAT(host.changes(), Contains(sent + each.pmf)) << each.methods;
        else
            EXPECT_THAT(host.changes(), Not(Contains(StartsWith(sent))));
    }
}

// PROFILE-11
TEST(SettingsRules, WhatWasSetForTheFramesStays) {
    ProfiledHost host(MODERN);
    host.has("home");
    host.on({"get_network", "0", "ieee80211w"}).prints("1");
    WifiHostSettings& settings = host.load();
    host.network("home").setKeyManagement(KEY_MGMT_SAE);
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    EXPECT_THAT(host.changes(), Not(Contains(StartsWith("set_network 0 ieee80211w"))));
}

// PROFILE-10
TEST(SettingsRules, TheDeviceSendsNoWordOfToday) {
    ProfiledHost host(DEVICE);
    host.has("home");
    WifiHostSettings& settings = host.load();
    host.network("home").setKeyManagement(KEY_MGMT_SAE);
    host.network("home").setPairwiseCiphers(PAIRWISE_GCMP_256);
    settings.saveNetworkSettings();
    for (const auto& command : host.changes())
        EXPECT_THAT(command, testing::AnyOf("save_config", "reconfigure"));
}

// PROFILE-12
TEST(SettingsRules, ClearedTexts) {
    const auto commands = [](Profile profile) {
        ProfiledHost host(profile);
        host.has("home", "", "02:00:00:00:00:01");
        host.on({"get_network", "0", "ca_cert"}).prints("/ca.pem");
        host.on({"get_network", "0", "psk"}).prints("*");
        host.on({"get_network", "0", "bssid"}).prints("02:00:00:00:00:01");
        WifiHostSettings& settings = host.load();
        host.network("home").setCACertificate(nullptr);
        host.network("home").setPsk(nullptr);
        host.network("home").setBssid("any");
        EXPECT_EQ(settings.saveNetworkSettings(), 1);
        return host.changes();
    };
    EXPECT_THAT(commands(DEVICE),
                ElementsAre("set_network 0 bssid 00:00:00:00:00:00", "bssid 0 00:00:00:00:00:00",
                            "set_network 0 psk \"\"", "set_network 0 ca_cert \"\"", "save_config",
                            "reconfigure"));
    EXPECT_THAT(commands(MODERN),
                ElementsAre("set_network 0 bssid any", "bssid 0 00:00:00:00:00:00",
                            "set_network 0 ca_cert NULL", "save_config", "reconfigure"));
}

// PROFILE-12
TEST(SettingsRules, TheWordNullIsAText) {
    ProfiledHost host(MODERN);
    host.has("home");
    WifiHostSettings& settings = host.load();
    host.network("home").setEAPIdentity("NULL");
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    EXPECT_THAT(host.changes(), Contains("set_network 0 identity \"NULL\""));
}

// PROFILE-13
TEST(SettingsRules, PasswordOfTheInnerKey) {
    for (const auto& [profile, key] :
         {std::pair{DEVICE, "private_key_passwd2"}, std::pair{MODERN, "private_key2_passwd"}}) {
        ProfiledHost host(profile);
        host.has("home");
        host.on({"get_network", "0", key}).prints("*");
        WifiHostSettings& settings = host.load();
        EXPECT_STREQ(host.network("home").getPrivateKeyPassword2(), "*");
        host.network("home").setPrivateKeyPassword2("secret");
        EXPECT_EQ(settings.saveNetworkSettings(), 1);
        EXPECT_THAT(host.changes(), Contains("set_network 0 " + std::string(key) + " \"secret\""));
    }
}

// PROFILE-10
TEST(SettingsRules, SetsOfSeveralWords) {
    const auto commands = [](Profile profile) {
        ProfiledHost host(profile);
        host.has("home");
        WifiHostSettings& settings = host.load();
        host.network("home").setEapModes(EAP_PEAP | EAP_TTLS);
        host.network("home").setProtocol(PROTOCOL_RSN);
        settings.saveNetworkSettings();
        return host.changes();
    };
    EXPECT_THAT(commands(DEVICE), Not(Contains(StartsWith("set_network 0 eap"))));
    EXPECT_THAT(commands(MODERN), Contains("set_network 0 eap PEAP TTLS"));
}

// PROFILE-14
TEST(SettingsRules, ARefusedField) {
    {
        ProfiledHost host(DEVICE);
        host.has("home");
        host.on({"set_network", "0", "phase1", "\"x\""}).prints("FAIL\n");
        WifiHostSettings& settings = host.load();
        host.network("home").setPhase1Step("x");
        EXPECT_EQ(settings.saveNetworkSettings(), 1);
        EXPECT_FALSE(host.network("home").getPhase1StepDirty());
    }
    ProfiledHost host(MODERN);
    host.has("home");
    host.on({"set_network", "0", "phase1", "\"x\""}).prints("FAIL\n");
    WifiHostSettings& settings = host.load();
    host.network("home").setPhase1Step("x");
    host.network("home").setEAPIdentity("me");
    ErrorHandler errors;
    EXPECT_EQ(settings.saveNetworkSettings(&errors), 0);
    EXPECT_THAT(host.changes(), ElementsAre("set_network 0 identity \"me\"",
                                            "set_network 0 phase1 \"x\"", "reconfigure"));
    EXPECT_TRUE(host.network("home").getPhase1StepDirty());
    EXPECT_TRUE(host.network("home").getEAPIdentityDirty()) << "it was taken back";
    ASSERT_TRUE(errors.savedError());
    EXPECT_STREQ(errors.savedError()->text(),
                 "the supplicant refused the field phase1; nothing was "
                 "saved; correct its value, then save again");
    host.network("home").setPhase1Step("y");
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    EXPECT_THAT(host.changes(),
                ElementsAre("set_network 0 identity \"me\"", "set_network 0 phase1 \"y\"",
                            "save_config", "reconfigure"));
}

// PROFILE-14
TEST(SettingsRules, ARefusedFieldLeavesANewNetworkInPlace) {
    ProfiledHost host(MODERN);
    host.has("home");
    host.on({"add_network"}).prints("1\n");
    host.on({"set_network", "1", "phase1", "\"x\""}).prints("FAIL\n");
    WifiHostSettings& settings = host.load();
    ASSERT_TRUE(settings.addNetwork("wlan0", "new"));
    host.network("new").setPhase1Step("x");
    host.changes();
    EXPECT_EQ(settings.saveNetworkSettings(), 0);
    EXPECT_THAT(host.changes(),
                ElementsAre("set_network 1 ssid \"new\"", "set_network 1 phase1 \"x\"",
                            "reconfigure", "add_network", "set_network 1 ssid \"new\"",
                            "enable_network 1"));
}

// PROFILE-15
TEST(SettingsRules, AKilledClientInALoad) {
    ProfiledHost host(MODERN);
    host.has("home");
    host.on({"get_network", "0", "priority"}).hangs();
    EXPECT_THAT(test::ssidsIn(host.load()), IsEmpty());
    host.changes();
    const auto calls = host.standIn.calls();
    EXPECT_EQ(calls.back().back(), "priority") << "no command follows";
}

// PROFILE-17
TEST(SettingsRules, OtherNetworksAfterAConnection) {
    ProfiledHost host(MODERN);
    host.has("home");
    host.has("work");
    host.has("off", "[DISABLED]");
    host.on({"status"})
        .prints("wpa_state=INACTIVE\n")
        .then()
        .prints("wpa_state=COMPLETED\nssid=work\n")
        .then()
        .prints("wpa_state=COMPLETED\nssid=home\n");
    WifiHostSettings& settings = host.load();
    EXPECT_TRUE(settings.connectNetwork("wlan0", "home"));
    EXPECT_THAT(host.changes(), ElementsAre("select 0"));
    settings.getCurrentStatus("wlan0");
    EXPECT_THAT(host.changes(), IsEmpty()) << "it is still connected to work";
    settings.getCurrentStatus("wlan0");
    EXPECT_THAT(host.changes(), ElementsAre("set_network 1 disabled 0"));
    settings.getCurrentStatus("wlan0");
    EXPECT_THAT(host.changes(), IsEmpty());
}

// PROFILE-17
TEST(SettingsRules, OtherNetworksAreNeverSavedAsDisabled) {
    ProfiledHost host(MODERN);
    host.has("home");
    host.has("work");
    WifiHostSettings& settings = host.load();
    settings.connectNetwork("wlan0", "home");
    host.network("home").setPriority(5);
    host.changes();
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    EXPECT_THAT(host.changes(), ElementsAre("set_network 0 priority 5", "set_network 1 disabled 0",
                                            "save_config", "reconfigure"));
}

// PROFILE-17
TEST(SettingsRules, OtherNetworksAreEnabledWhenTheConnectionIsGivenUp) {
    ProfiledHost host(MODERN);
    host.has("home");
    host.has("work");
    WifiHostSettings& settings = host.load();
    settings.connectNetwork("wlan0", "home");
    host.changes();
    settings.disconnectNetwork("wlan0", "home");
    EXPECT_THAT(host.changes(), ElementsAre("disconnect", "set_network 1 disabled 0"));
    settings.connectNetwork("wlan0", "home");
    host.changes();
    WifiHostSettings::unload();
    EXPECT_THAT(host.changes(), ElementsAre("set_network 1 disabled 0"));
}

// PROFILE-17
TEST(SettingsRules, TheDeviceLeavesOtherNetworksDisabled) {
    ProfiledHost host(DEVICE);
    host.has("home");
    host.has("work");
    host.status = "wpa_state=COMPLETED\nssid=home\n";
    WifiHostSettings& settings = host.load();
    settings.connectNetwork("wlan0", "home");
    settings.getCurrentStatus("wlan0");
    settings.disconnectNetwork("wlan0", "home");
    EXPECT_THAT(host.changes(), ElementsAre("select 0", "disconnect"));
}

// PROFILE-18
TEST(SettingsRules, FirstAdapter) {
    const auto adapters = [](Profile profile) {
        ProfiledHost host(profile);
        host.adapters = "p2p-dev-wlan0\nwlan0\nwlan1\n";
        WifiHostSettings& settings = host.load();
        char* names[16] = {};
        unsigned char count = 0;
        settings.getWifiAdapters(names, 16, &count);
        std::vector<std::string> list;
        for (char* name : names) {
            if (name)
                list.emplace_back(name);
            delete[] name;
        }
        return list;
    };
    EXPECT_THAT(adapters(DEVICE), ElementsAre("p2p-dev-wlan0", "wlan0"));
    EXPECT_THAT(adapters(MODERN), ElementsAre("wlan0", "wlan1"));
}

// PROFILE-19
TEST(SettingsRules, FilesOfReplies) {
    const auto files = [](Profile profile) {
        ProfiledHost host(profile);
        host.standIn.on({"-iwlan0", "save_config"}).prints("OK\n").leaves("/tmp/seen_%d");
        host.load();
        WifiUtil::getInstance()->scanNetworks("wlan0"); // leaves its file
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator("/tmp"))
            count += entry.path().filename().string().find("_result_") != std::string::npos ? 1 : 0;
        return count;
    };
    EXPECT_EQ(files(MODERN), 0U);
    EXPECT_EQ(files(DEVICE), 1U);
}

// PROFILE-21
TEST(SettingsRules, IdsAfterASave) {
    const auto lists = [](Profile profile) {
        ProfiledHost host(profile);
        host.has("home");
        host.on({"get_network", "0", "key_mgmt"}).prints("NONE");
        WifiHostSettings& settings = host.load();
        host.network("home").setPriority(1);
        EXPECT_EQ(settings.saveNetworkSettings(), 1);
        const std::size_t before = host.standIn.calls().size();
        settings.connectNetwork("wlan0", "home");
        return host.standIn.calls()[before].back();
    };
    EXPECT_EQ(lists(DEVICE), "0") << "select 0 at once";
    EXPECT_EQ(lists(MODERN), "list_networks");
}

// PROFILE-5, PROFILE-21
TEST(SettingsRules, ANewNetworkOutsideOfAsciiKeepsItsIdAfterASave) {
    const std::string header = "network id / ssid / bssid / flags\n";
    const std::string home = "0\thome\tany\t\n";
    ProfiledHost host(MODERN);
    host.on({"list_networks"})
        .prints(header + home)
        .then()
        .prints(header + home + "1\t\\xf0\\x9f\\x9b\\x9c\tany\t\n");
    host.on({"add_network"}).prints("1\n");
    WifiHostSettings& settings = host.load();
    ASSERT_TRUE(settings.addNetwork("wlan0", EMOJI.c_str()));
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    host.changes();
    EXPECT_TRUE(settings.connectNetwork("wlan0", EMOJI.c_str()));
    EXPECT_THAT(host.changes(), ElementsAre("select 1"));
}

std::string linesOfNetworks(int first, int end) {
    std::string text = "network id / ssid / bssid / flags\n";
    for (int id = first; id < end; ++id)
        text += std::to_string(id) + "\ta network " + std::to_string(id) + "\tany\t[DISABLED]\n";
    return text;
}

// PROFILE-4. The supplicant leaves out the lines that do not fit into 4096 bytes.
TEST(SettingsRules, AListThatFillsAReplyIsContinued) {
    const auto lists = [](Profile profile) {
        ProfiledHost host(profile);
        host.on({"list_networks"}).prints(linesOfNetworks(0, 125));
        host.on({"list_networks", "LAST_ID=124"}).prints(linesOfNetworks(125, 249));
        host.on({"list_networks", "LAST_ID=248"}).prints(linesOfNetworks(249, 250));
        Lines lines;
        EXPECT_TRUE(queryList(*WifiUtil::getInstance(), "wlan0", lines));
        return lines;
    };
    EXPECT_EQ(lists(DEVICE).size(), 125U);
    EXPECT_EQ(lists(MODERN).size(), 250U);
    EXPECT_EQ(lists(MODERN).back(), "249\ta network 249\tany\t[DISABLED]");
}

// PROFILE-4
TEST(SettingsRules, AListThatIsNotContinuedEnds) {
    ProfiledHost host(MODERN);
    host.on({"list_networks"}).prints(linesOfNetworks(0, 125));
    host.on({"list_networks", "LAST_ID=124"}).prints(linesOfNetworks(0, 125));
    Lines lines;
    EXPECT_TRUE(queryList(*WifiUtil::getInstance(), "wlan0", lines));
    EXPECT_EQ(lines.size(), 125U);
}

} // namespace
