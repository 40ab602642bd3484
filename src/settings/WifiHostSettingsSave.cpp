#include "model/WifiNetworkList.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "watchdog/WifiHostSettingsWatchdog.h"
