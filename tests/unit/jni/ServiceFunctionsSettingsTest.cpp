// The functions that carry out one operation of the settings.

#include "jni/ServiceFunctions.h"

#include "model/WifiNetwork.h"
#include "model/WifiTypes.h"
#include "settings/SettingsLock.h"

#include "unit/settings/LoadedSettings.h"
#include "unit/settings/MissingWifiUtil.h"
#include "unit/settings/RecordedLocks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n";
const std::string AT_HOME = "bssid=02:00:00:00:01:00\nssid=home\nwpa_state=COMPLETED\n";

class SettingsFunctions : public testing::Test {
protected:
    test::LoadedSettings loaded;
};

// Of one network.

using NetworkFunction = int (*)(ErrorHandler*, const char*, const char*) noexcept;

struct Operation {
    const char* name;
    NetworkFunction function;
    const char* ssid;
    const char* command; // the first
    bool ofAnUnknownOne;
};

const Operation OPERATIONS[] = {
    {"Connect", connectToNetwork, "work", "-iwlan0 select 3", false},
    {"Disconnect", disconnectFromNetwork, "work", "-iwlan0 disconnect", true},
    {"Add", addWifiNetwork, "new", "-iwlan0 add_network", true},
    {"Remove", removeWifiNetwork, "work", "-iwlan0 remove_network 3", true},
};

class FunctionOfOneNetwork : public SettingsFunctions,
                             public testing::WithParamInterface<Operation> {
protected:
    int run(const char* iface, const char* ssid) {
        return GetParam().function(nullptr, iface, ssid);
    }
};

TEST_P(FunctionOfOneNetwork, SucceedsWithTheOperation) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    EXPECT_NE(run("wlan0", GetParam().ssid), 0);
    EXPECT_EQ(loaded.commands().at(0), GetParam().command);
}

TEST_P(FunctionOfOneNetwork, FailsWithTheOperation) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("FAIL\n", 1);
    EXPECT_EQ(run("wlan0", GetParam().ssid), 0);
    EXPECT_THAT(loaded.commands(), ElementsAre(GetParam().command));
    for (const char* const iface : {"fourteen-chars", "", static_cast<const char*>(nullptr)})
        EXPECT_EQ(run(iface, GetParam().ssid), 0);
    EXPECT_EQ(loaded.commands().size(), 1U);
}

TEST_P(FunctionOfOneNetwork, TakesANullSsidForAnUnknownOne) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    const bool cannotBeMade = GetParam().function == addWifiNetwork;
    const bool expected = GetParam().ofAnUnknownOne && !cannotBeMade;
    EXPECT_EQ(run("wlan0", nullptr) != 0, expected);
    EXPECT_EQ(run(nullptr, nullptr) != 0, expected);
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_P(FunctionOfOneNetwork, TakesAnySsid) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    const std::string longSsid(200, 's');
    for (const char* const ssid : {"unknown", longSsid.c_str(), "caf\xe9", "\xf0\x9f\x98\x80"})
        EXPECT_EQ(run("wlan0", ssid) != 0, GetParam().ofAnUnknownOne);
}

TEST_P(FunctionOfOneNetwork, LoadsTheSettingsWhereThereAreNone) {
    loaded.scriptLoad(NETWORKS);
    run("wlan0", "unknown");
    EXPECT_THAT(loaded.commands(), Contains("-iwlan0 list_networks"));
}

INSTANTIATE_TEST_SUITE_P(Every, FunctionOfOneNetwork, testing::ValuesIn(OPERATIONS),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(SettingsFunctions, AddNoNetworkTwice) {
    loaded.load(NETWORKS);
    loaded.answer("1\n");
    EXPECT_EQ(addWifiNetwork(nullptr, "wlan0", "home"), 0);
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(SettingsFunctions, Roam) {
    loaded.load("3\twork\tany\t\n");
    loaded.standIn.on({"-iwlan0", "reassociate"}).prints("OK\n").then().prints("FAIL\n");
    loaded.answer("OK\n");
    EXPECT_NE(roamNetworks(nullptr, "wlan0"), 0);
    EXPECT_THAT(loaded.commands(),
                ElementsAre("-iwlan0 disconnect", "-iwlan0 set_network 3 disabled 0",
                            "-iwlan0 reassociate"));
    EXPECT_EQ(roamNetworks(nullptr, "wlan0"), 0);
    EXPECT_EQ(roamNetworks(nullptr, nullptr), 0);
}

// Saving and stopping.

TEST_F(SettingsFunctions, SaveWhatWasChanged) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    settings.getNetwork("wlan0", "home")->cleanDirtyFields();
    loaded.answer("OK\n");
    EXPECT_EQ(saveWifiHostSettings(nullptr), 1);
    EXPECT_THAT(loaded.commands(), IsEmpty());
    settings.getNetwork("wlan0", "home")->setPriority(5);
    EXPECT_EQ(saveWifiHostSettings(nullptr), 1);
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 set_network 0 priority 5",
                                               "-iwlan0 save_config", "-iwlan0 reconfigure"));
}

TEST_F(SettingsFunctions, TellThatSavingFailed) {
    loaded.load("0\thome\tany\t\n").getNetwork("wlan0", "home")->setPriority(5);
    loaded.answer("FAIL\n");
    EXPECT_EQ(saveWifiHostSettings(nullptr), 0);
}

TEST_F(SettingsFunctions, StopWithoutAskingForTheSettings) {
    loaded.answer("");
    EXPECT_EQ(stopWifiService(nullptr), 1);
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.load(NETWORKS);
    EXPECT_EQ(stopWifiService(nullptr), 1);
    EXPECT_EQ(stopWifiService(nullptr), 1);
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.scriptLoad("0\tother\tany\t\n");
    EXPECT_NE(removeWifiNetwork(nullptr, "wlan0", "home"), 0);
    EXPECT_THAT(loaded.commands(), Contains("-iwlan0 list_networks")) << "loaded anew";
}

// What is asked.

TEST_F(SettingsFunctions, HandOverTheSsidOfTheCurrentNetwork) {
    loaded.load(NETWORKS);
    loaded.standIn.on({"-iwlan0", "status"}).prints(AT_HOME);
    char* ssid = nullptr;
    ASSERT_EQ(getCurrentNetwork(nullptr, "wlan0", &ssid), 1);
    const std::unique_ptr<char[]> owner(ssid);
    EXPECT_STREQ(ssid, "home");
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 status"));
}

TEST_F(SettingsFunctions, HandOverNullWithoutACurrentNetwork) {
    const auto current = [](const char* iface) {
        char before = 'x';
        char* ssid = &before;
        EXPECT_EQ(getCurrentNetwork(nullptr, iface, &ssid), 0);
        return ssid;
    };
    loaded.load(NETWORKS);
    loaded.standIn.on({"-iwlan0", "status"})
        .prints("ssid=elsewhere\nwpa_state=COMPLETED\n")
        .then()
        .exits(255);
    EXPECT_EQ(current("wlan0"), nullptr) << "not configured";
    EXPECT_EQ(current("wlan0"), nullptr) << "no answer";
    EXPECT_EQ(current(nullptr), nullptr);
    EXPECT_EQ(current("fourteen-chars"), nullptr);
    EXPECT_EQ(getCurrentNetwork(nullptr, "wlan0", nullptr), 0);
    loaded.fail();
    EXPECT_EQ(current("wlan0"), nullptr);
}

TEST_F(SettingsFunctions, HandOverNullWhereTheCurrentNetworkHasNoSsid) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    settings.getNetwork("wlan0", "home")->setSsid(nullptr);
    loaded.standIn.on({"-iwlan0", "status"}).prints("wpa_state=COMPLETED\n");
    char before = 'x';
    char* ssid = &before;
    ASSERT_NE(settings.getCurrentNetwork("wlan0"), nullptr);
    EXPECT_EQ(getCurrentNetwork(nullptr, "wlan0", &ssid), 0);
    EXPECT_EQ(ssid, nullptr);
}

TEST_F(SettingsFunctions, TellTheState) {
    loaded.load(NETWORKS);
    loaded.standIn.on({"-iwlan0", "status"})
        .prints(AT_HOME)
        .then()
        .prints("wpa_state=SCANNING\n")
        .then()
        .exits(255);
    EXPECT_EQ(getDaemonStatus(nullptr, "wlan0"), 8);
    EXPECT_EQ(getDaemonStatus(nullptr, "which one plays no part"), 3);
    EXPECT_EQ(getDaemonStatus(nullptr, nullptr), 0);
    EXPECT_EQ(loaded.commands().size(), 2U) << "null asks nothing";
    EXPECT_EQ(getDaemonStatus(nullptr, "wlan0"), 0) << "no answer";
}

TEST_F(SettingsFunctions, AskUnderTheLock) {
    WifiHostSettings& settings = loaded.load(NETWORKS, AT_HOME);
    const test::SettingsMutexes mutexes(settings);
    char* ssid = nullptr;
    for (const auto& ask :
         {std::function<void()>([] { getDaemonStatus(nullptr, nullptr); }),
          std::function<void()>([&] { getCurrentNetwork(nullptr, nullptr, &ssid); })}) {
        const test::LockEvents events = test::eventsOf(ask);
        ASSERT_EQ(events.size(), 6U);
        EXPECT_EQ(test::LockEvents(events.begin(), events.begin() + 3), mutexes.taking());
        EXPECT_EQ(test::LockEvents(events.end() - 3, events.end()), mutexes.givingBack());
    }
}

// The XML document.

struct Document {
    int result;
    std::string text;
};

Document document(bool full, ErrorHandler* errors = nullptr) {
    BufferedXWriter out;
    const int result = getWifiHostSettingsXML(&out, errors, full);
    return {result, out.text()};
}

TEST_F(SettingsFunctions, WriteTheDocumentOfTheSettings) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    loaded.answer("FAIL\n", 1);
    for (const bool full : {false, true}) {
        BufferedXWriter out;
        ASSERT_TRUE(settings.getWifiHostSettingsXML(&out, nullptr, full));
        const Document written = document(full);
        EXPECT_EQ(written.result, 1);
        EXPECT_EQ(written.text, out.text());
        EXPECT_NE(written.text.find("home"), std::string::npos);
    }
    EXPECT_NE(document(false).text, document(true).text) << "the flag is passed on";
}

// API-11
TEST_F(SettingsFunctions, ReportIntoTheErrorHandlerOfTheCallerWhatTheDocumentLacks) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    loaded.answer("FAIL\n", 1);
    WifiNetwork& network = *settings.getNetwork("wlan0", "home");
    network.setProtocol(PROTOCOL_WPA);
    network.setKeyManagement(KEY_MGMT_WPA_PSK);
    network.setPairwiseCiphers(PAIRWISE_TKIP);
    network.setGroupCiphers(GROUP_TKIP);
    network.setPsk(std::string((1U << 20U) + 1, 'x').c_str());
    ErrorHandler errors;
    EXPECT_EQ(document(true, &errors).result, 1);
    ASSERT_NE(errors.savedError(), nullptr);
    EXPECT_EQ(std::string(errors.savedError()->id()).rfind("crypt.", 0), 0U);
}

TEST_F(SettingsFunctions, WriteADocumentAlsoWithoutNetworks) {
    loaded.fail();
    const Document written = document(true);
    EXPECT_EQ(written.result, 1);
    EXPECT_FALSE(written.text.empty());
    EXPECT_EQ(getWifiHostSettingsXML(nullptr, nullptr, true), 0);
}

// The result tells of the settings, not of the document.
TEST_F(SettingsFunctions, SucceedWithoutADocumentWhereThereIsNoDriver) {
    loaded.load(NETWORKS);
    const test::MissingWifiUtil missing;
    for (const bool full : {true, false}) {
        const Document written = document(full);
        EXPECT_EQ(written.result, 1);
        EXPECT_EQ(written.text, "");
    }
}

// The first adapter.

std::string firstAdapter() {
    char before = 'x';
    char* name = &before;
    const int result = getWifiAdapter(nullptr, &name);
    EXPECT_EQ(result, name ? 1 : 0);
    const std::unique_ptr<char[]> owner(name);
    return name ? name : "null";
}

TEST_F(SettingsFunctions, HandOverTheFirstAdapter) {
    loaded.load(NETWORKS);
    EXPECT_EQ(firstAdapter(), "wlan0");
    loaded.adapters = "wl\xe9n1\nwlan0\n";
    loaded.load(NETWORKS);
    EXPECT_EQ(firstAdapter(), "wl\xe9n1");
    EXPECT_THAT(loaded.commands(), IsEmpty());
    EXPECT_EQ(getWifiAdapter(nullptr, nullptr), 0);
}

TEST_F(SettingsFunctions, HandOverNullWithoutAnAdapter) {
    loaded.fail();
    EXPECT_EQ(firstAdapter(), "null");
}

} // namespace
