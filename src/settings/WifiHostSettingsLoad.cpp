#include "model/WifiNetworkList.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

bool WifiHostSettings::initializeSettings() {
    return false;
}

const char* WifiHostSettings::adapterName() const noexcept {
    return adapterNames ? adapterNames->data()[0] : nullptr;
}
