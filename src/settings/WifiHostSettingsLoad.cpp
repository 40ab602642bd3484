// Loading everything from the supplicant.

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/Capacities.h"
#include "settings/ListLine.h"
#include "settings/NetworkKeys.h"
#include "settings/ScanLine.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

using namespace platwifi;

namespace {

constexpr unsigned int VALUE_CHARACTERS = 128;

void readValues(WifiUtil& util, const char* adapter, WifiNetwork& network) {
    char value[VALUE_CHARACTERS + 1] = {}; // one that fills its room comes without a NUL
    readNetworkKeys(network, [&](const char* key) {
        const unsigned char id = network.getNetworkId();
        return util.getNetworkValue(adapter, id, key, value, VALUE_CHARACTERS) ? value : nullptr;
    });
}

} // namespace

bool WifiHostSettings::initializeSettings() {
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !loadAdapterNames(*util))
        return false;
    ReplyLines lines(NETWORK_LINES);
    if (!util->getNetworkDatabaseSsids(adapterName(), lines.data(), lines.capacity(), &lines.count))
        return false;
    if (!networkList) // an earlier failure took it
        return false;
    loadNetworks(*util, lines);
    return (lines.count == 0 || loadScan(*util)) && loadStatus(*util);
}

bool WifiHostSettings::loadAdapterNames(WifiUtil& util) {
    auto names = std::make_unique<ReplyLines>(ADAPTER_LINES);
    if (!util.getWifiAdapters(names->data(), names->capacity(), &names->count))
        return false;
    const std::lock_guard<std::mutex> guard(adapterNamesMutex);
    adapterNames = std::move(names);
    return adapterNames->count > 0;
}

const char* WifiHostSettings::adapterName() const noexcept {
    return adapterNames ? adapterNames->data()[0] : nullptr;
}

void WifiHostSettings::loadNetworks(WifiUtil& util, const ReplyLines& lines) {
    for (unsigned int i = 0; i < lines.count; ++i) {
        if (const char* const line = lines.data()[i])
            loadNetwork(util, line);
    }
    networkList->validateDatabase();
}

void WifiHostSettings::loadNetwork(WifiUtil& util, const char* line) {
    auto network = std::make_unique<WifiNetwork>();
    if (!readListLine(line, *network))
        return;
    const ListMark mark = markIn(line);
    setMarkedStatus(*network, mark);
    if (mark == ListMark::CURRENT)
        setCurrentNetwork(network.get());
    readValues(util, adapterName(), *network);
    network->cleanDirtyFields();
    if (networkList->addNetworkToList(network.get()))
        static_cast<void>(network.release()); // the list's own now
    else if (mark == ListMark::CURRENT)
        setCurrentNetwork(nullptr); // there is one with this SSID, and this one goes
}

bool WifiHostSettings::loadScan(WifiUtil& util) {
    ReplyLines lines(NETWORK_LINES);
    if (!util.discoverNetworks(adapterName(), lines.data(), lines.capacity(), &lines.count))
        return false;
    const std::lock_guard<WifiNetworkList> guard(*networkList);
    mergeScan(lines, networkList->getHead(), isWholeLine);
    return true;
}

bool WifiHostSettings::loadStatus(WifiUtil& util) {
    ReplyLines lines(STATUS_LINES);
    if (!util.getCurrentNetworkStatus(adapterName(), lines.data(), lines.capacity(), &lines.count))
        return false;
    for (unsigned int i = 0; i < lines.count; ++i) {
        if (const char* const line = lines.data()[i])
            followStatusLine(line);
    }
    settleStatus();
    return true;
}
