// What is done with one network, or with all, at the supplicant and in memory at once.

#include "TextCopy.h"
#include "model/HasSsid.h"
#include "model/WifiNetworkList.h"
#include "platform/MutexGuard.h"
#include "settings/Capacities.h"
#include "settings/LeftNetwork.h"
#include "settings/NetworkNumbers.h"
#include "settings/SettingsLock.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

using namespace platwifi;

namespace {

constexpr unsigned char NO_NUMBER = 0; // for commands that name no network

// Not added when the list has a network like it; it is freed then.
void addTo(WifiNetworkList& list, std::unique_ptr<WifiNetwork> network) {
    if (list.addNetworkToList(network.get()))
        static_cast<void>(network.release());
}

} // namespace

WifiNetwork* WifiHostSettings::getNetwork(const char* /*iface*/, const char* ssid) const noexcept {
    WifiNetwork* network = networkList ? networkList->getHead() : nullptr;
    while (network && !hasSsid(network, ssid))
        network = network->getNext();
    return network;
}

bool WifiHostSettings::addNetwork(const char* iface, const char* ssid) noexcept {
    const SettingsLock lock(*this);
    if (getNetwork(iface, ssid))
        return false;
    WifiUtil* const util = WifiUtil::getInstance();
    unsigned char number = NO_NUMBER;
    if (!util || !util->createNetwork(iface, ssid, &number))
        return false;
    auto network = std::make_unique<WifiNetwork>();
    network->setSsid(ssid);
    network->setNetworkId(number);
    if (networkList)
        addTo(*networkList, std::move(network));
    return true;
}

bool WifiHostSettings::removeNetwork(const char* iface, const char* ssid) noexcept {
    const SettingsLock lock(*this);
    const WifiNetwork* const network = getNetwork(iface, ssid);
    if (!network)
        return true;
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !confirmNumber(*util, *network) ||
        !util->removeNetwork(iface, network->getNetworkId()))
        return false;
    leaveNetwork(ssid);
    knownSsids.erase(network);
    networkList->removeNetworkFromList(ssid);
    return true;
}

bool WifiHostSettings::connectNetwork(const char* iface, const char* ssid) noexcept {
    const SettingsLock lock(*this);
    WifiNetwork* const network = getNetwork(iface, ssid);
    WifiUtil* const util = network ? WifiUtil::getInstance() : nullptr;
    if (!util || !confirmNumber(*util, *network))
        return false;
    if (supplicantState == WPA_STATE_DISCONNECTED && !util->forceReassociation(iface))
        return false;
    if (!util->connectToNetwork(iface, network->getNetworkId()))
        return false;
    if (moveTo(network))
        network->setNetworkStatus(NETWORK_STATUS_CONNECTING);
    return true;
}

bool WifiHostSettings::disconnectNetwork(const char* iface, const char* ssid) noexcept {
    const SettingsLock lock(*this);
    WifiNetwork* const network = getNetwork(iface, ssid);
    if (!network)
        return true;
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !util->disconnectFromNetwork(iface, network->getNetworkId()))
        return false;
    leaveNetwork(ssid);
    enableUnlessDisabled(*network);
    setSupplicantState(WPA_STATE_DISCONNECTED);
    return true;
}

bool WifiHostSettings::roamNetworks(const char* iface) noexcept {
    const SettingsLock lock(*this);
    WifiUtil* const util = WifiUtil::getInstance();
    UnnumberedNetworks unnumbered;
    if (!util || !confirmNumbers(*util, unnumbered) ||
        !util->disconnectFromNetwork(iface, NO_NUMBER))
        return false;
    const WifiNetwork* network = networkList ? networkList->getHead() : nullptr;
    for (; network; network = network->getNext()) {
        if (unnumbered.count(network) == 0)
            util->setNetworkValue(iface, network->getNetworkId(), "disabled", "0");
    }
    return util->forceReassociation(iface);
}

bool WifiHostSettings::getNetworkDatabaseSsids(const char* /*iface*/, char** out,
                                               unsigned char capacity,
                                               unsigned char* count) noexcept {
    if (!out || !count)
        return false;
    *count = 0;
    lockNetworks();
    const WifiNetwork* network = networkList ? networkList->getHead() : nullptr;
    for (; network && *count < capacity; network = network->getNext()) {
        if (!network->getSsid())
            return false; // deliberately with the lock still held
        out[(*count)++] = copyOf(network->getSsid());
    }
    unlockNetworks();
    return true;
}

bool WifiHostSettings::getWifiAdapters(char** out, unsigned char /*capacity*/,
                                       unsigned char* count) const noexcept {
    if (!out || !count)
        return false;
    *count = 0;
    if (!isActive) // another thread may have unloaded since the caller got the instance
        getInstance(nullptr);
    const std::lock_guard<std::mutex> guard(adapterNamesMutex);
    while (adapterNames && *count < adapterNames->count && *count < ADAPTER_LINES) {
        out[*count] = copyOf(adapterNames->data()[*count]);
        ++*count;
    }
    return true;
}

void WifiHostSettings::leaveNetwork(const char* ssid) noexcept {
    const MutexGuard guard(_sync);
    if (hasSsid(currentNetwork, ssid))
        currentNetwork = nullptr;
}

// Numbers are those of the adapter that the networks were loaded from, whichever a command is for.
bool WifiHostSettings::confirmNumbers(WifiUtil& util, UnnumberedNetworks& unnumbered) {
    if (!numbersAreStale || !networkList || !networkList->getHead())
        return true;
    if (!platwifi::confirmNumbers(util, adapterName(), *networkList, knownSsids, unnumbered))
        return false;
    endStaleness(unnumbered);
    return true;
}

// Numbers stay stale until every network has been found.
void WifiHostSettings::endStaleness(const UnnumberedNetworks& unnumbered) noexcept {
    numbersAreStale = !unnumbered.empty();
    if (!numbersAreStale)
        knownSsids.clear();
}

bool WifiHostSettings::confirmNumber(WifiUtil& util, const WifiNetwork& network) {
    UnnumberedNetworks unnumbered;
    return confirmNumbers(util, unnumbered) && unnumbered.count(&network) == 0;
}
