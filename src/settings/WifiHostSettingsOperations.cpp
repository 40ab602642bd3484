// Operations on networks: each runs a command of the supplicant and then changes memory accordingly.

#include "Profile.h"
#include "TextCopy.h"
#include "model/NetworkFunctions.h"
#include "model/WifiNetworkList.h"
#include "settings/NetworkIds.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

using namespace platwifi;

namespace {

constexpr unsigned char NO_ID = 0; // for a command that needs no network id

} // namespace

bool WifiHostSettings::addNetwork(const char* iface, const char* ssid) noexcept {
    const SettingsLock lock(*this);
    if (getNetwork(iface, ssid) || (rule::EMPTY_COLUMNS_COUNT() && ssid && *ssid == '\0'))
        return false;
    WifiUtil* const util = WifiUtil::getInstance();
    unsigned char id = NO_ID;
    if (!util || !util->createNetwork(iface, ssid, &id))
        return false;
    auto network = std::make_unique<WifiNetwork>();
    network->setSsid(ssid);
    network->setNetworkId(id);
    if (networkList && networkList->addNetworkToList(network.get()))
        networkIds->added(*network.release(), ssid); // the list owns it now
    return true;
}

bool WifiHostSettings::removeNetwork(const char* iface, const char* ssid) noexcept {
    const SettingsLock lock(*this);
    const WifiNetwork* const network = getNetwork(iface, ssid);
    if (!network)
        return true;
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !confirmId(*util, *network) ||
        !util->removeNetwork(iface, network->getNetworkId()))
        return false;
    clearCurrent(ssid);
    networkIds->removed(*network);
    networkList->removeNetworkFromList(ssid);
    return true;
}

bool WifiHostSettings::connectNetwork(const char* iface, const char* ssid) noexcept {
    const SettingsLock lock(*this);
    WifiNetwork* const network = getNetwork(iface, ssid);
    WifiUtil* const util = network ? WifiUtil::getInstance() : nullptr;
    if (!util || !confirmId(*util, *network))
        return false;
    if (supplicantState == WPA_STATE_DISCONNECTED && !util->forceReassociation(iface))
        return false;
    noteEnabledOthers(*network);
    if (!util->connectToNetwork(iface, network->getNetworkId()))
        return false;
    if (setCurrent(network))
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
    enableOthers(*util);
    clearCurrent(ssid);
    enableUnlessDisabled(*network);
    setSupplicantState(WPA_STATE_DISCONNECTED);
    return true;
}

bool WifiHostSettings::roamNetworks(const char* iface) noexcept {
    const SettingsLock lock(*this);
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !networkIds->confirm(*util, adapterName()) ||
        !util->disconnectFromNetwork(iface, NO_ID))
        return false;
    const WifiNetwork* network = networkList ? networkList->getHead() : nullptr;
    for (; network; network = network->getNext()) {
        if (networkIds->isKnown(*network))
            util->setNetworkValue(iface, network->getNetworkId(), "disabled", "0");
    }
    return util->forceReassociation(iface);
}

void WifiHostSettings::noteEnabledOthers(const WifiNetwork& selected) {
    if (!rule::OTHERS_STAY_ENABLED())
        return;
    selectedSsid = selected.getSsid();
    for (const WifiNetwork* other = networkList->getHead(); other; other = other->getNext()) {
        const bool isEnabled = other->getNetworkStatus() != NETWORK_STATUS_DISABLED;
        if (other != &selected && isEnabled && other->getSsid())
            disabledOthers.emplace_back(other->getSsid());
    }
}

// For a moment after a selection the supplicant is still connected to the network before.
void WifiHostSettings::enableOthersWhenConnected(WifiUtil& util) {
    if (!rule::OTHERS_STAY_ENABLED())
        return;
    const SettingsLock lock(*this);
    if (supplicantState == WPA_STATE_COMPLETED && hasSsid(currentNetwork, selectedSsid.c_str()))
        enableOthers(util);
}

// Not by the command enable_network, which makes the supplicant look for a better network at once.
void WifiHostSettings::enableOthers(WifiUtil& util) {
    if (disabledOthers.empty() || !networkIds->confirm(util, adapterName()))
        return;
    for (const std::string& ssid : disabledOthers) {
        WifiNetwork* const network = getNetwork(adapterName(), ssid.c_str());
        if (!network || !networkIds->isKnown(*network))
            continue;
        util.setNetworkValue(adapterName(), network->getNetworkId(), "disabled", "0");
        if (network->getNetworkStatus() == NETWORK_STATUS_DISABLED)
            network->setNetworkStatus(NETWORK_STATUS_ENABLED);
    }
    disabledOthers.clear();
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
            return false; // with the lock still held; quirk: OP-7
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
    while (adapterNames && *count < adapterNames->count && *count < rule::MOST_ADAPTERS()) {
        out[*count] = copyOf(adapterNames->data()[*count]);
        ++*count;
    }
    return true;
}

// The ids are those of the adapter that the networks were loaded from, whichever adapter the command is
// for.
bool WifiHostSettings::confirmId(WifiUtil& util, const WifiNetwork& network) {
    return networkIds->confirm(util, adapterName()) && networkIds->isKnown(network);
}
