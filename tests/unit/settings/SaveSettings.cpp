#include "SaveSettings.h"

#include <thread>

class WifiHostSettingsWatchdog;

namespace test {

bool FakeWatchdog::isUsed = false;
bool FakeWatchdog::works = true;
int FakeWatchdog::signals = 0;
std::function<void()> FakeWatchdog::atEverySignal;

// The linker puts the first of each two in the place of the watchdog's own operation, the second.

bool initialize(WifiHostSettingsWatchdog*) __asm__(
    "__wrap__ZN24WifiHostSettingsWatchdog10initializeEv");
void start(WifiHostSettingsWatchdog*) __asm__("__wrap__ZN24WifiHostSettingsWatchdog5startEv");
void stop(WifiHostSettingsWatchdog*) __asm__("__wrap__ZN24WifiHostSettingsWatchdog4stopEv");
void sendSaveSettingsSignal(WifiHostSettingsWatchdog*) __asm__(
    "__wrap__ZN24WifiHostSettingsWatchdog22sendSaveSettingsSignalEv");

bool realInitialize(WifiHostSettingsWatchdog*) __asm__(
    "__real__ZN24WifiHostSettingsWatchdog10initializeEv");
void realStart(WifiHostSettingsWatchdog*) __asm__("__real__ZN24WifiHostSettingsWatchdog5startEv");
void realStop(WifiHostSettingsWatchdog*) __asm__("__real__ZN24WifiHostSettingsWatchdog4stopEv");
void realSendSaveSettingsSignal(WifiHostSettingsWatchdog*) __asm__(
    "__real__ZN24WifiHostSettingsWatchdog22sendSaveSettingsSignalEv");

bool initialize(WifiHostSettingsWatchdog* watchdog) {
    return FakeWatchdog::isUsed ? FakeWatchdog::works : realInitialize(watchdog);
}

void start(WifiHostSettingsWatchdog* watchdog) {
    if (!FakeWatchdog::isUsed)
        realStart(watchdog);
}

void stop(WifiHostSettingsWatchdog* watchdog) {
    if (!FakeWatchdog::isUsed)
        realStop(watchdog);
}

void sendSaveSettingsSignal(WifiHostSettingsWatchdog* watchdog) {
    if (!FakeWatchdog::isUsed)
        return realSendSaveSettingsSignal(watchdog);
    ++FakeWatchdog::signals;
    if (FakeWatchdog::atEverySignal)
        FakeWatchdog::atEverySignal();
}

namespace {

std::string listOf(const std::vector<std::string>& ssids) {
    std::string list;
    for (std::size_t i = 0; i < ssids.size(); ++i)
        list += std::to_string(i) + "\t" + ssids[i] + "\tany\t\n";
    return list;
}

} // namespace

const Arguments SaveSettings::SAVE = wlan0({"save_config"});
const Arguments SaveSettings::REREAD = wlan0({"reconfigure"});

Arguments SaveSettings::call(const std::string& iface, const Arguments& command) {
    Arguments whole{"/proc/boot/wpa_cli", "-i" + iface};
    whole.insert(whole.end(), command.begin(), command.end());
    return whole;
}

FakeWatchdog::Use::Use() {
    isUsed = true;
}

FakeWatchdog::Use::~Use() {
    isUsed = false;
}

SaveSettings::SaveSettings() {
    FakeWatchdog::works = true;
    FakeWatchdog::signals = 0;
    FakeWatchdog::atEverySignal = nullptr;
}

void SaveSettings::load(const std::vector<std::string>& ssids, const std::string& adapters) {
    loaded.adapters = adapters;
    settings = &loaded.load(listOf(ssids));
    acceptAll();
}

void SaveSettings::acceptAll() {
    standIn.reset();
    standIn.on({"*"}).prints("OK\n");
}

void SaveSettings::scriptList(const std::vector<std::string>& ssids) {
    standIn.reset();
    standIn.on({"-iwlan0", "list_networks"}).prints("header\n" + listOf(ssids));
    standIn.on({"*"}).prints("OK\n");
}

WifiNetwork& SaveSettings::network(const std::string& ssid) {
    return *settings->getNetwork("wlan0", ssid.c_str());
}

int SaveSettings::save() {
    const int result = settings->saveNetworkSettings();
    std::thread([this] {
        settings->lockSettings();
        settings->unlockSettings();
    }).join();
    return result;
}

Calls SaveSettings::saveGiving(int result) {
    const std::size_t before = standIn.calls().size();
    EXPECT_EQ(save(), result);
    const Calls calls = standIn.calls();
    return {calls.begin() + static_cast<std::ptrdiff_t>(before), calls.end()};
}

} // namespace test
