#include "LoadedSettings.h"

#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include "support/Lines.h"
#include "support/TestTime.h"

#include <algorithm>
#include <thread>

namespace test {
namespace {

// For every test of a program that is linked with this. The refresh thread soon sees the signal to stop, and
// a client may wait at a checkpoint for as long as a test needs.
const TestTime timeOfSettings([](TestTime& time) {
    time.deadlinesAre(QUICK);
    time.pausesEndWithTheChild();
});

const Arguments STATUS{"-iwlan0", "status"};

std::string joined(const Arguments& call) {
    std::string text;
    for (std::size_t i = 1; i < call.size(); ++i)
        text += (i == 1 ? "" : " ") + call[i];
    return text;
}

// The current network when the client answers a question for it like this.
const WifiNetwork* currentNetworkFor(const std::string& status) {
    StandIn client;
    client.on(STATUS).prints(status);
    return LoadedSettings::settings().getCurrentNetwork("wlan0");
}

} // namespace

LoadedSettings::LoadedSettings() {
    WifiUtil::getInstance();
    standIn.reset();
}

LoadedSettings::~LoadedSettings() {
    WifiHostSettings::unload();
    WifiUtil::unload();
}

void LoadedSettings::value(const std::string& id, const std::string& key, const std::string& text) {
    m_values.push_back({id, key, text});
}

void LoadedSettings::scriptLoad(const std::string& networks, const std::string& status,
                                const std::string& scan) {
    standIn.reset();
    for (const Arguments& value : m_values)
        standIn.on({"-iwlan0", "get_network", value[0], value[1]}).prints(value[2]);
    standIn.answersLoad(networks, status, scan);
}

void LoadedSettings::answer(const std::string& reply, int status) {
    standIn.on({"*"}).prints(reply).exits(status);
}

void LoadedSettings::acceptAll() {
    standIn.reset();
    answer("OK\n");
}

void LoadedSettings::list(const std::string& networks, int status) {
    standIn.reset();
    standIn.on({"-iwlan0", "list_networks"}).prints(LIST_HEADER + networks).exits(status);
    answer("OK\n");
}

WifiHostSettings& LoadedSettings::load(const std::string& networks, const std::string& status,
                                       const std::string& scan) {
    scriptLoad(networks, status, scan);
    reload();
    standIn.reset();
    return settings();
}

WifiHostSettings& LoadedSettings::reload() {
    return *WifiHostSettings::reload(nullptr);
}

void LoadedSettings::refreshAll(const std::string& networks, const std::string& status,
                                const std::string& scan) {
    scriptLoad(networks, status, scan);
    EXPECT_TRUE(settings().refreshAllSettings());
    standIn.reset();
}

WifiHostSettings& LoadedSettings::fail() {
    standIn.reset();
    answer("", 255);
    reload();
    standIn.reset();
    return settings();
}

Commands LoadedSettings::commands() const {
    Commands commands;
    for (const Arguments& call : standIn.calls())
        commands.push_back(joined(call));
    return commands;
}

WifiNetwork* LoadedSettings::network(const std::string& ssid) {
    return settings().getNetwork("wlan0", ssid.c_str());
}

unsigned int LoadedSettings::statusOf(const std::string& ssid) {
    const platwifi::SettingsLock lock(settings());
    const WifiNetwork* const found = network(ssid);
    return found ? found->getNetworkStatus() : NETWORK_STATUS_UNKNOWN;
}

void LoadedSettings::setStatus(const std::string& ssid, unsigned int status) {
    const platwifi::SettingsLock lock(settings());
    network(ssid)->setNetworkStatus(status);
}

std::vector<std::string> LoadedSettings::ssids() {
    return ssidsOf(settings());
}

// A status without an SSID changes nothing.
const WifiNetwork* LoadedSettings::currentNetwork() {
    return currentNetworkFor("");
}

std::string LoadedSettings::current() {
    const WifiNetwork* const network = currentNetwork();
    return network ? network->getSsid() : "none";
}

void LoadedSettings::setCurrent(const std::string& ssid) {
    currentNetworkFor("ssid=" + ssid + "\n");
}

WpaState LoadedSettings::state() {
    const std::string words[] = {"UNKNOWN",         "DISCONNECTED",    "IDLE",
                                 "SCANNING",        "ASSOCIATING",     "ASSOCIATED",
                                 "4-WAY HANDSHAKE", "GROUP HANDSHAKE", "COMPLETED"};
    const StandIn client;
    const std::string text = dump();
    const std::string label = "\nCurrent WPA_STATUS        : ";
    const std::size_t at = text.rfind(label);
    EXPECT_NE(at, std::string::npos) << text;
    const std::string word = text.substr(at + label.size(), text.size() - at - label.size() - 1);
    const auto* const found = std::find(std::begin(words), std::end(words), word);
    EXPECT_NE(found, std::end(words)) << word;
    return static_cast<WpaState>(found - std::begin(words));
}

void LoadedSettings::setState(const std::string& word) {
    StandIn client;
    client.on(STATUS).prints("wpa_state=" + word + "\n");
    settings().getCurrentStatus("wlan0");
}

std::string LoadedSettings::dump() {
    testing::internal::CaptureStderr();
    settings().dump();
    return testing::internal::GetCapturedStderr();
}

void LoadedSettings::expectNoLockHeld() {
    std::thread([] { const platwifi::SettingsLock lock(settings()); }).join();
}

std::vector<std::string> ssidsOf(WifiHostSettings& settings) {
    platwifi::ReplyLines ssids(255);
    EXPECT_TRUE(settings.getNetworkDatabaseSsids(nullptr, ssids.data(), 255, &ssids.count));
    return toStrings(ssids);
}

} // namespace test
