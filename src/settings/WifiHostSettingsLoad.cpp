// Loading everything from the supplicant.

#include "Profile.h"
#include "model/NetworkFields.h"
#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/KeyState.h"
#include "settings/LateFields.h"
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
#include <utility>

using namespace platwifi;

namespace {

constexpr unsigned int VALUE_CHARACTERS = 128;

// The values that the supplicant has for one network. There are none once a client was killed, where that ends
// the load: each further command would cost seconds.
class NetworkValues {
public:
    NetworkValues(WifiUtil& util, const char* adapter, const WifiNetwork& network)
        : m_util(util), m_adapter(adapter), m_id(network.getNetworkId()) {}

    const char* of(const char* key) {
        const bool isSet =
            !m_ended && m_util.getNetworkValue(m_adapter, m_id, key, m_buffer, VALUE_CHARACTERS);
        m_ended = m_ended || (rule::KILLED_CLIENT_FAILS_LOAD() && lastChildWasKilled());
        return isSet ? m_buffer : nullptr;
    }

    bool ended() const { return m_ended; }

private:
    WifiUtil& m_util;
    const char* m_adapter;
    unsigned char m_id;
    char m_buffer[VALUE_CHARACTERS + 1] = {}; // a value of that length is stored without a NUL
    bool m_ended = false;
};

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
    const bool hasNetworks = !lines.empty();
    return loadNetworks(*util, std::move(lines)) && (!hasNetworks || loadScan(*util)) &&
           loadStatus(*util);
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
// memory. The memory of a line goes to the networks after it.
bool WifiHostSettings::loadNetworks(WifiUtil& util, Lines lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string line = std::move(lines[i]);
        if (const auto listed = listedSsid(line))
            networkIds->listed(*listed);
        if (i < rule::MOST_NETWORKS() && !loadNetwork(util, line.c_str()))
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
    NetworkValues values(util, adapterName(), *network);
    const KeyState keyState = loadFields(*network, [&](const char* key) { return values.of(key); });
    if (networkList->addNetworkToList(network.get()))
        networkIds->loaded(*network.release(), keyState); // the list owns it now
    else if (flag == ListFlag::CURRENT)
        storeCurrent(nullptr); // the list has this SSID already, and this network is deleted
    return !values.ended();
}

KeyState WifiHostSettings::loadFields(WifiNetwork& network, const ValueSource& valueOf) {
    KeyState keyState = KeyState::beforeLoad();
    const UnreadKeys unread = readNetworkKeys(network, [&](const char* key) {
        const char* const value = valueOf(key);
        keyState.read(key, value);
        return value;
    });
    network.cleanDirtyFields();
    if (rule::ONLY_USABLE_FIELDS_ARE_READ())
        NetworkFields::of(network).setUnread(std::make_unique<LateFields>(*this, network, unread));
    return keyState;
}

// The network was loaded some time ago: its id is confirmed in any case, because values of another network
// must not get into it. KeyState stays as it was: without the late values it has ids confirmed too often.
bool WifiHostSettings::readLate(const WifiNetwork& network,
                                const FunctionRef<void(const ValueSource&)>& read) {
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !adapterName())
        return false;
    networkIds->distrust();
    if (!confirmId(*util, network))
        return false;
    NetworkValues values(*util, adapterName(), network);
    read([&](const char* key) { return values.of(key); });
    return !values.ended();
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
