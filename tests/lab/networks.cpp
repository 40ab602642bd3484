// Configured networks and real access points: what the settings load of them, and what they do to
// them. For the guest of the lab, by the job `networks`, which writes the configuration.

#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/Records.h"
#include "supplicant/WatchedClient.h"
#include "supplicant/WifiUtil.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <thread>

using test::HostCommand;
using test::Lines;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr const char* WLAN = "wlan0";
constexpr std::chrono::seconds LONG_ENOUGH{30};
constexpr std::chrono::milliseconds BETWEEN_LOOKS{50};

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

Lines ask(const std::string& command) {
    return HostCommand("wpa_cli -iwlan0 " + command).lines;
}

std::string textOfFile(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

std::string configuration() {
    return textOfFile(variable("LAB_SUPPLICANT_CONF"));
}

testing::AssertionResult comesAbout(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + LONG_ENOUGH;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return testing::AssertionFailure() << testing::PrintToString(ask("status"));
        std::this_thread::sleep_for(BETWEEN_LOOKS);
    }
    return testing::AssertionSuccess();
}

bool statusHas(const Lines& wanted) {
    return testing::Matches(testing::IsSupersetOf(wanted))(ask("status"));
}

testing::AssertionResult isConnectedTo(const std::string& ssid) {
    return comesAbout([&] { return statusHas({"ssid=" + ssid, "wpa_state=COMPLETED"}); });
}

testing::AssertionResult isDisconnected() {
    return comesAbout([] { return statusHas({"wpa_state=DISCONNECTED"}); });
}

WifiHostSettings& settings() {
    return *WifiHostSettings::getInstance(nullptr);
}

void expectAllAsConfigured() {
    EXPECT_THAT(differences(loadedRecords(settings()), test::expectedRecords()), IsEmpty());
}

// Makes the supplicant read these networks in place of those it has, and loads them.
void load(const std::string& networks) {
    const std::string text = configuration();
    std::ofstream(variable("LAB_SUPPLICANT_CONF"))
        << text.substr(0, text.find("network={")) << networks;
    ASSERT_EQ(ask("reconfigure"), Lines{"OK"});
    settings().refreshAllSettings();
}

void expectConnectionTo(const std::string& ssid) {
    EXPECT_TRUE(settings().connectNetwork(WLAN, ssid.c_str()));
    EXPECT_TRUE(isConnectedTo(ssid)) << ssid;
    EXPECT_TRUE(settings().disconnectNetwork(WLAN, ssid.c_str()));
    EXPECT_TRUE(isDisconnected()) << ssid;
}

void unload() {
    WifiHostSettings::unload();
    WifiUtil::unload();
}

class Networks : public testing::Test {
public:
    static void TearDownTestSuite() { unload(); }
};

// First, while the supplicant still has the networks that the job has configured.
TEST_F(Networks, AreLoadedAsConfigured) {
    const test::Records loaded = loadedRecords(settings());
    EXPECT_THAT(differences(loaded, test::expectedRecords()), IsEmpty());
    EXPECT_THAT(ssidsOf(loaded), testing::ElementsAre("lab-eap", "lab-wep", "lab-wpa1-tkip",
                                                      "lab-hidden", "lab-psk", "lab-open"));
}

TEST_F(Networks, AreConnectedTo) {
    for (const std::string& ssid : ssidsOf(loadedRecords(settings())))
        expectConnectionTo(ssid);
}

} // namespace
