// Another process that uses the settings. It executes commands from its standard input, one a line, and
// answers each with a line. A command is a word, an SSID, which some commands ignore, and a number, which
// all of them ignore.

#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <functional>
#include <iostream>
#include <map>
#include <string>

namespace {

constexpr const char* WLAN = "wlan0";

bool has(WifiHostSettings& settings, const char* ssid) {
    const platwifi::SettingsLock lock(settings);
    return settings.getNetwork(WLAN, ssid) != nullptr;
}

bool addOpen(WifiHostSettings& settings, const char* ssid) {
    const platwifi::SettingsLock lock(settings);
    return settings.addNetwork(WLAN, ssid) &&
           settings.getNetwork(WLAN, ssid)->setKeyManagement(KEY_MGMT_NONE);
}

using Command = std::function<bool(WifiHostSettings&, const char* ssid)>;

const std::map<std::string, Command> COMMANDS{
    {"has", has},
    {"add", addOpen},
    {"save", [](auto& settings, const char*) { return settings.saveNetworkSettings() == 1; }},
};

} // namespace

int main() {
    std::string word;
    std::string ssid;
    unsigned int number = 0;
    while (std::cin >> word >> ssid >> number) {
        const auto command = COMMANDS.find(word);
        if (command == COMMANDS.end())
            return 2;
        WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
        std::cout << (command->second(settings, ssid.c_str()) ? "yes" : "no") << std::endl;
    }
    WifiHostSettings::unload();
    WifiUtil::unload();
    return 0;
}
