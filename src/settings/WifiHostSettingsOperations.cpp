#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <cstring>

WifiNetwork* WifiHostSettings::getNetwork(const char* /*iface*/, const char* ssid) const noexcept {
    WifiNetwork* network = networkList ? networkList->getHead() : nullptr;
    while (network && (!network->getSsid() || std::strcmp(network->getSsid(), ssid) != 0))
        network = network->getNext();
    return network;
}
