#include "LoadedSettings.h"

#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include "support/Lines.h"
#include "support/TestTime.h"

#include <gtest/gtest.h>

namespace test {
namespace {

// For every test of a program that is linked with this. The refresh thread soon sees the signal to stop, and
// a client may wait at a checkpoint for as long as a test needs.
const TestTime timeOfSettings([](TestTime& time) {
    time.deadlinesAre(QUICK);
    time.pausesEndWithTheChild();
});

std::string joined(const Arguments& call) {
    std::string text;
    for (std::size_t i = 1; i < call.size(); ++i)
        text += (i == 1 ? "" : " ") + call[i];
    return text;
}

} // namespace

LoadedSettings::~LoadedSettings() {
    WifiHostSettings::unload();
    WifiUtil::unload();
}

WifiHostSettings& LoadedSettings::make() {
    WifiHostSettings& settings = *WifiHostSettings::reload(nullptr);
    WifiUtil::getInstance(); // asks its question, if it was not needed until now
    standIn.reset();
    return settings;
}

void LoadedSettings::scriptLoad(const std::string& networks, const std::string& status) {
    standIn.reset();
    standIn.on({"interface"})
        .prints("Selected interface 'wlan0'\nAvailable interfaces:\n" + adapters);
    standIn.on({"-iwlan0", "list_networks"})
        .prints("network id / ssid / bssid / flags\n" + networks);
    standIn.on({"-iwlan0", "scan_results"}).prints("header\n");
    standIn.on({"-iwlan0", "status"}).prints(status);
    standIn.on({"*"}).prints("FAIL\n"); // no network has a value for any key
}

WifiHostSettings& LoadedSettings::load(const std::string& networks, const std::string& status) {
    scriptLoad(networks, status);
    return make();
}

WifiHostSettings& LoadedSettings::fail() {
    standIn.reset();
    standIn.on({"*"}).exits(255);
    return make();
}

void LoadedSettings::answer(const std::string& reply, int status) {
    standIn.on({"*"}).prints(reply).exits(status);
}

Commands LoadedSettings::commands() const {
    Commands commands;
    for (const Arguments& call : standIn.calls())
        commands.push_back(joined(call));
    return commands;
}

unsigned int statusOf(WifiHostSettings& settings, const char* ssid) {
    const platwifi::SettingsLock lock(settings);
    const WifiNetwork* const network = settings.getNetwork(nullptr, ssid);
    return network ? network->getNetworkStatus() : NETWORK_STATUS_UNKNOWN;
}

std::vector<std::string> ssidsOf(WifiHostSettings& settings) {
    platwifi::ReplyLines ssids(255);
    EXPECT_TRUE(settings.getNetworkDatabaseSsids(nullptr, ssids.data(), 255, &ssids.count));
    return toStrings(ssids);
}

} // namespace test
