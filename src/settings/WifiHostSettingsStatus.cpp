// What the supplicant is doing, and the network that it is on.

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "platform/MutexGuard.h"
#include "settings/StatusLine.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/StatusReply.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <cstring>

using namespace platwifi;

namespace {

bool hasSsid(const WifiNetwork& network, const char* ssid) {
    return network.getSsid() && std::strcmp(network.getSsid(), ssid) == 0;
}

} // namespace

void WifiHostSettings::setCurrentNetwork(WifiNetwork* network) noexcept {
    const MutexGuard guard(_sync);
    currentNetwork = network;
}

void WifiHostSettings::setSupplicantState(WpaState state) noexcept {
    const MutexGuard guard(_sync);
    supplicantState = state;
}

void WifiHostSettings::followStatusLine(const char* line) noexcept {
    switch (kindOf(line)) {
    case StatusLine::SSID:
        followStatusSsid(statusValue(line));
        break;
    case StatusLine::STATE:
        setSupplicantState(stateIn(line));
        break;
    case StatusLine::OTHER:
        break;
    }
}

// The network that is left is enabled again, even if it was disabled.
void WifiHostSettings::followStatusSsid(const char* ssid) noexcept {
    const MutexGuard guard(_sync);
    if (currentNetwork && hasSsid(*currentNetwork, ssid))
        return;
    if (currentNetwork)
        currentNetwork->setNetworkStatus(NETWORK_STATUS_ENABLED);
    currentNetwork = getNetwork(adapterName(), ssid);
}

// The current network is told what the supplicant does, and is not current any more when that is
// nothing.
void WifiHostSettings::settleStatus() noexcept {
    const MutexGuard guard(_sync);
    if (!currentNetwork)
        return;
    if (supplicantState > WPA_STATE_IDLE) {
        const bool connected = supplicantState == WPA_STATE_COMPLETED;
        currentNetwork->setNetworkStatus(connected ? NETWORK_STATUS_CONNECTED
                                                   : NETWORK_STATUS_CONNECTING);
        return;
    }
    if (currentNetwork->getNetworkStatus() != NETWORK_STATUS_DISABLED)
        currentNetwork->setNetworkStatus(NETWORK_STATUS_ENABLED);
    currentNetwork = nullptr;
}
