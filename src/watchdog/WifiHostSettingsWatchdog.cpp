#include "watchdog/WifiHostSettingsWatchdog.h"

bool WifiHostSettingsWatchdog::initialize() noexcept {
    return true;
}

void WifiHostSettingsWatchdog::start() noexcept {}

void WifiHostSettingsWatchdog::stop() noexcept {}

void WifiHostSettingsWatchdog::sendSaveSettingsSignal() noexcept {}
