// What the supplicant is doing, and the network that it is on.

#include "model/NetworkFunctions.h"
#include "model/WifiNetworkList.h"
#include "platform/MutexGuard.h"
#include "settings/NetworkIds.h"
#include "settings/SettingsLock.h"
#include "settings/WifiHostSettings.h"
#include "settings/replies/ListLine.h"
#include "settings/replies/ScanLine.h"
#include "settings/replies/StatusLine.h"
#include "settings/replies/WholeLines.h"
#include "supplicant/Reply.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"
#include "zam/Zam.h"

#include <algorithm>
#include <cstring>
#include <optional>

using namespace platwifi;

namespace {

constexpr const char* CURRENT_SSID = "ssid="; // at the beginning: there is "bssid=", too

const char* currentSsidIn(const Lines& status) {
    for (const std::string& line : status) {
        if (line.compare(0, std::strlen(CURRENT_SSID), CURRENT_SSID) == 0)
            return statusValue(line.c_str());
    }
    return nullptr;
}

} // namespace

// Looked at again under the lock, since another thread may have refreshed meanwhile. The time is noted
// first, so that a failure is not tried again at once.
bool WifiHostSettings::refreshDatabaseNetworksStatus() noexcept {
    if (!statusRefreshIsDue(Zam::getInstance()->milliseconds()))
        return true;
    const SettingsLock lock(*this);
    const std::uint64_t now = Zam::getInstance()->milliseconds();
    if (!statusRefreshIsDue(now))
        return true;
    stampStatusRefresh(now);
    WifiUtil* const util = WifiUtil::getInstance();
    Lines list;
    if (!util || !adapterNames || !queryList(*util, adapterName(), list))
        return false;
    if (!networkList)
        return true;
    if (!followList(list))
        return false;
    Lines found;
    if (queryScan(*util, adapterName(), found))
        mergeScan(found, networkList->getHead(), isInLine);
    leaveIdleNetwork();
    return true;
}

// After a save the ids in memory may be old ones: this list has the new ones as well.
bool WifiHostSettings::followList(const Lines& list) {
    networkIds->confirm(list);
    const std::size_t count = std::min<std::size_t>(list.size(), NETWORK_LINES);
    const Lines lines(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(count));
    for (WifiNetwork* network = networkList->getHead(); network; network = network->getNext()) {
        if (!followListLines(lines, *network))
            return false;
    }
    return true;
}

// No line is that of a network without a known id, yet each has to have a first field.
bool WifiHostSettings::followListLines(const Lines& lines, WifiNetwork& network) noexcept {
    const bool isKnown = networkIds->isKnown(network);
    for (const std::string& line : lines) {
        const std::optional<int> id = listedId(line);
        if (!id)
            return false;
        if (isKnown && *id == network.getNetworkId())
            followMark(markIn(line.c_str()), network);
    }
    return true;
}

void WifiHostSettings::followMark(platwifi::ListMark mark, WifiNetwork& network) noexcept {
    setMarkedStatus(network, mark);
    if (mark == ListMark::CURRENT)
        moveTo(&network);
}

WifiNetwork* WifiHostSettings::getCurrentNetwork(const char* iface) noexcept {
    if (!iface)
        return nullptr;
    WifiUtil* const util = WifiUtil::getInstance();
    Lines lines;
    if (!util || !queryStatus(*util, iface, lines))
        moveTo(nullptr);
    else if (const char* const ssid = currentSsidIn(lines))
        moveTo(getNetwork(iface, ssid));
    return currentNetwork;
}

// Unlike a load, this takes the BSSID of a status for an SSID too, and then the SSID that follows it.
unsigned int WifiHostSettings::getCurrentStatus(const char* iface) noexcept {
    if (!iface)
        return WPA_STATE_UNKNOWN;
    WifiUtil* const util = WifiUtil::getInstance();
    Lines lines;
    if (!util || !queryStatus(*util, adapterName(), lines))
        setSupplicantState(WPA_STATE_UNKNOWN);
    for (const std::string& line : lines) {
        if (line.find("wpa_state=") != std::string::npos)
            setSupplicantState(stateIn(line.c_str()));
        else if (line.find(CURRENT_SSID) != std::string::npos)
            followStatusSsid(statusValue(line.c_str()));
    }
    settleStatus();
    return supplicantState;
}

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
    if (hasSsid(currentNetwork, ssid))
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

// Returns whether it was another one until now.
bool WifiHostSettings::moveTo(WifiNetwork* network) noexcept {
    const MutexGuard guard(_sync);
    if (network && hasSsid(currentNetwork, network->getSsid()))
        return false;
    if (currentNetwork)
        enableUnlessDisabled(*currentNetwork);
    currentNetwork = network;
    return true;
}

void WifiHostSettings::leaveIdleNetwork() noexcept {
    const MutexGuard guard(_sync);
    const unsigned int status = currentNetwork ? currentNetwork->getNetworkStatus() : 0;
    if (status == NETWORK_STATUS_ENABLED || status == NETWORK_STATUS_DISABLED)
        currentNetwork = nullptr;
}
