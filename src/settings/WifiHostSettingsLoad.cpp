// Loading everything from the supplicant.

#include "Profile.h"
#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/KeyState.h"
#include "settings/NetworkIds.h"
#include "settings/WifiHostSettings.h"
#include "settings/replies/ListLine.h"
#include "settings/replies/NetworkKeys.h"
#include "settings/replies/ScanLine.h"
#include "settings/replies/StatusLine.h"
#include "settings/replies/WholeLines.h"
#include "supplicant/ChildProcess.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <cstring>

using namespace platwifi;

namespace {

constexpr unsigned int VALUE_CHARACTERS = 128;

// Reads the values of one network. No value once a client was killed, where that ends the load: each
// further command would cost seconds.
KeyState readValues(WifiUtil& util, const char* adapter, WifiNetwork& network, bool& ended) {
    char buffer[VALUE_CHARACTERS + 1] = {}; // a value of that length is stored without a NUL
    KeyState keyState = KeyState::beforeLoad();
    readNetworkKeys(network, [&](const char* key) {
        const unsigned char id = network.getNetworkId();
        const bool isSet =
            !ended && util.getNetworkValue(adapter, id, key, buffer, VALUE_CHARACTERS);
        ended = ended || (rule::KILLED_CLIENT_FAILS_LOAD() && lastChildWasKilled());
        const char* const value = isSet ? buffer : nullptr;
        keyState.read(key, value);
        return value;
    });
    return keyState;
}

// The interface of Wi-Fi Direct, which the supplicant lists beside that of the adapter.
bool isP2pDevice(const char* name) {
    constexpr const char* PREFIX = "p2p-dev-";
    return std::strncmp(name, PREFIX, std::strlen(PREFIX)) == 0;
}

} // namespace

bool WifiHostSettings::initializeSettings() {
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !loadAdapterNames(*util))
        return false;
    Lines lines;
    if (!queryList(*util, adapterName(), lines))
        return false;
    if (!networkList) // null after an earlier failure, until a reload
        return false;
    return loadNetworks(*util, lines) && (lines.empty() || loadScan(*util)) && loadStatus(*util);
}

bool WifiHostSettings::loadAdapterNames(WifiUtil& util) {
    auto names = std::make_unique<ReplyLines>(rule::MOST_ADAPTERS());
    if (!util.getWifiAdapters(names->data(), names->capacity(), &names->count))
        return false;
    if (rule::P2P_DEVICES_ARE_SKIPPED())
        names->removeIf(isP2pDevice);
    const std::lock_guard<std::mutex> guard(adapterNamesMutex);
    adapterNames = std::move(names);
    return adapterNames->count > 0;
}

const char* WifiHostSettings::adapterName() const noexcept {
    return adapterNames ? adapterNames->data()[0] : nullptr;
}

// The lines beyond the limit are noted for the ids alone: one of them may have the SSID of a network in
// memory.
bool WifiHostSettings::loadNetworks(WifiUtil& util, const Lines& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const auto listed = listedSsid(lines[i]))
            networkIds->listed(*listed);
        if (i < rule::MOST_NETWORKS() && !loadNetwork(util, lines[i].c_str()))
            return false;
    }
    networkList->validateDatabase();
    return true;
}

// False when the load cannot go on. A line that is none is left out.
bool WifiHostSettings::loadNetwork(WifiUtil& util, const char* line) {
    auto network = std::make_unique<WifiNetwork>();
    if (!readListLine(line, *network))
        return true;
    const ListFlag flag = listFlagIn(line);
    setStatusByFlag(*network, flag);
    if (flag == ListFlag::CURRENT)
        storeCurrent(network.get());
    bool ended = false;
    const KeyState keyState = readValues(util, adapterName(), *network, ended);
    network->cleanDirtyFields();
    if (networkList->addNetworkToList(network.get()))
        networkIds->loaded(*network.release(), keyState); // the list owns it now
    else if (flag == ListFlag::CURRENT)
        storeCurrent(nullptr); // the list has this SSID already, and this network is deleted
    return !ended;
}

bool WifiHostSettings::loadScan(WifiUtil& util) {
    Lines lines;
    if (!queryScan(util, adapterName(), lines, rule::MOST_NETWORKS()))
        return false;
    const std::lock_guard<WifiNetworkList> guard(*networkList);
    mergeScan(lines, networkList->getHead(), isWholeLine);
    return true;
}

bool WifiHostSettings::loadStatus(WifiUtil& util) {
    Lines status;
    if (!queryStatus(util, adapterName(), status))
        return false;
    applyStatus(status, StatusReader::LOAD);
    return true;
}
