// The status: what the supplicant is doing, and which network is the current one.

#include "Profile.h"
#include "model/NetworkFunctions.h"
#include "model/WifiNetworkList.h"
#include "platform/MutexGuard.h"
#include "settings/NetworkIds.h"
#include "settings/WifiHostSettings.h"
#include "settings/replies/ListLine.h"
#include "settings/replies/PrintedSsid.h"
#include "settings/replies/ScanLine.h"
#include "settings/replies/StatusLine.h"
#include "settings/replies/WholeLines.h"
#include "supplicant/Reply.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"
#include "zam/Zam.h"

#include <algorithm>
#include <optional>
#include <vector>

using namespace platwifi;

// A line of the list. It is read once: reading it for each network would take time with the square of their number.
struct platwifi::ListEntry {
    std::optional<int> id;
    ListFlag flag;
};

// The time is compared again under the lock, since another thread may have refreshed meanwhile. It is noted
// before the queries, so that a failure is not tried again at once.
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
    if (!applyList(list))
        return false;
    Lines found;
    if (queryScan(*util, adapterName(), found, rule::MOST_NETWORKS()))
        mergeScan(found, networkList->getHead(), isInLine);
    clearIdleCurrent();
    return true;
}

// The ids in memory may be stale after a save; the list shows those that are valid now.
bool WifiHostSettings::applyList(const Lines& list) {
    networkIds->confirm(list);
    const std::size_t count = std::min<std::size_t>(list.size(), rule::MOST_NETWORKS());
    std::vector<ListEntry> entries;
    for (std::size_t i = 0; i < count; ++i)
        entries.push_back({listedId(list[i]), listFlagIn(list[i].c_str())});
    for (WifiNetwork* network = networkList->getHead(); network; network = network->getNext()) {
        if (!applyListTo(*network, entries))
            return false;
    }
    return true;
}

// No line belongs to a network whose id is not known. Its lines are looked at all the same, because a line
// without any field ends the refresh.
bool WifiHostSettings::applyListTo(WifiNetwork& network,
                                   const std::vector<ListEntry>& entries) noexcept {
    const bool isKnown = networkIds->isKnown(network);
    for (const ListEntry& entry : entries) {
        if (!entry.id)
            return false;
        if (isKnown && *entry.id == network.getNetworkId())
            applyListFlag(network, entry.flag);
    }
    return true;
}

void WifiHostSettings::applyListFlag(WifiNetwork& network, ListFlag flag) noexcept {
    setStatusByFlag(network, flag);
    if (flag == ListFlag::CURRENT)
        setCurrent(&network);
}

// Without an answer there is no current network. Of a status without an SSID the current network stays;
// of several SSIDs in it the first counts.
WifiNetwork* WifiHostSettings::getCurrentNetwork(const char* iface) noexcept {
    if (!iface)
        return nullptr;
    WifiUtil* const util = WifiUtil::getInstance();
    Lines status;
    if (!util || !queryStatus(*util, iface, status))
        setCurrent(nullptr);
    for (const std::string& text : status) {
        const StatusLine line = readStatusLine(text.c_str(), StatusReader::CURRENT_NETWORK);
        if (line.kind != StatusKind::SSID)
            continue;
        setCurrent(getNetwork(iface, ssidInMemory(line.value).c_str()));
        break;
    }
    return currentNetwork;
}

unsigned int WifiHostSettings::getCurrentStatus(const char* iface) noexcept {
    if (!iface)
        return WPA_STATE_UNKNOWN;
    WifiUtil* const util = WifiUtil::getInstance();
    Lines status;
    if (!util || !queryStatus(*util, adapterName(), status))
        setSupplicantState(WPA_STATE_UNKNOWN);
    applyStatus(status, StatusReader::CURRENT_STATUS);
    if (util)
        enableOthersWhenConnected(*util);
    return supplicantState;
}

void WifiHostSettings::setSupplicantState(WpaState state) noexcept {
    const MutexGuard guard(_sync);
    supplicantState = state;
}

// An SSID enables the previous network even where it was disabled; callers rely on that.
void WifiHostSettings::applyStatus(const Lines& status, StatusReader reader) noexcept {
    for (const std::string& text : status) {
        const StatusLine line = readStatusLine(text.c_str(), reader);
        if (line.kind == StatusKind::SSID) {
            const std::string ssid = ssidInMemory(line.value);
            setCurrent(getNetwork(adapterName(), ssid.c_str()), Previous::ENABLED);
        } else if (line.kind == StatusKind::STATE) {
            setSupplicantState(stateIn(text.c_str()));
        }
    }
    applyWpaState();
}

// In the states unknown, disconnected and idle the supplicant is on no network.
void WifiHostSettings::applyWpaState() noexcept {
    const MutexGuard guard(_sync);
    const bool isConnected = supplicantState == WPA_STATE_COMPLETED;
    const auto status = isConnected ? NETWORK_STATUS_CONNECTED : NETWORK_STATUS_CONNECTING;
    if (supplicantState <= WPA_STATE_IDLE)
        setCurrent(nullptr);
    else if (currentNetwork)
        currentNetwork->setNetworkStatus(status);
}

bool WifiHostSettings::setCurrent(WifiNetwork* network, Previous previous) noexcept {
    const MutexGuard guard(_sync);
    if (network && hasSsid(currentNetwork, network->getSsid()))
        return false;
    if (currentNetwork && previous == Previous::ENABLED)
        currentNetwork->setNetworkStatus(NETWORK_STATUS_ENABLED);
    else if (currentNetwork)
        enableUnlessDisabled(*currentNetwork);
    currentNetwork = network;
    return true;
}

void WifiHostSettings::storeCurrent(WifiNetwork* network) noexcept {
    const MutexGuard guard(_sync);
    currentNetwork = network;
}

void WifiHostSettings::clearCurrent(const char* ssid) noexcept {
    const MutexGuard guard(_sync);
    if (hasSsid(currentNetwork, ssid))
        currentNetwork = nullptr;
}

// The list showed no CURRENT flag for a network that is enabled or disabled after it was applied.
void WifiHostSettings::clearIdleCurrent() noexcept {
    const MutexGuard guard(_sync);
    const unsigned int status = currentNetwork ? currentNetwork->getNetworkStatus() : 0;
    if (status == NETWORK_STATUS_ENABLED || status == NETWORK_STATUS_DISABLED)
        currentNetwork = nullptr;
}
