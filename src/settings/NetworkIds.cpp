#include "settings/NetworkIds.h"

#include "Profile.h"
#include "model/WifiNetwork.h"
#include "settings/replies/PrintedSsid.h"
#include "supplicant/ValueQuoting.h"

#include <algorithm>
#include <cstring>

namespace platwifi {
namespace {

// The bytes that the supplicant takes as the SSID. Where an SSID is not sent as its bytes, they are what is
// sent, without the quotes around it.
std::string sentSsid(const char* value) {
    if (rule::SSIDS_ARE_BYTES())
        return value;
    const std::string sent = quotedFor("ssid", value);
    const bool isQuoted = sent.size() >= 2 && sent.front() == '"' && sent.back() == '"';
    return isQuoted ? sent.substr(1, sent.size() - 2) : sent;
}

} // namespace

void NetworkIds::forget() noexcept {
    m_entries.clear();
    m_isStale = false;
}

void NetworkIds::listed(const ListedSsid& line) {
    m_entries.push_back({line.printed, line.id});
}

void NetworkIds::loaded(WifiNetwork& network, const KeyState& key) {
    Entry& entry = m_entries.back();
    entry.network = &network;
    entry.key = key;
    m_isStale = m_isStale || !entry.id;
}

// Where a network in memory has the new id already, the supplicant has read its file again and renumbered its
// networks: the ids in memory are old.
void NetworkIds::added(WifiNetwork& network, const char* ssid) {
    const unsigned char id = network.getNetworkId();
    m_isChanged = true;
    m_isStale = m_isStale || std::any_of(m_entries.begin(), m_entries.end(),
                                         [&](const Entry& entry) { return entry.id == id; });
    m_entries.push_back({printedSsid(ssid), id, &network});
}

void NetworkIds::removed(const WifiNetwork& network) {
    m_isChanged = true;
    const auto isIt = [&](const Entry& entry) { return entry.network == &network; };
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(), isIt), m_entries.end());
}

void NetworkIds::written(const WifiNetwork& network, const char* key, const char* value,
                         bool accepted) {
    for (Entry& entry : m_entries) {
        if (entry.network != &network)
            continue;
        entry.key.written(key, value, accepted);
        if (accepted && std::strcmp(key, "ssid") == 0)
            entry.printed = printedSsid(sentSsid(value));
    }
}

void NetworkIds::saved(bool everywhere) {
    m_isStale =
        m_isStale || rule::IDS_ARE_ALWAYS_CONFIRMED() || m_isChanged || !everywhere || !keepsIds();
    m_isChanged = false;
}

void NetworkIds::takenBack() {
    m_isStale = true;
}

// Whether the networks in memory have the ids 0 to n-1 in order, and the supplicant keeps all of them in its
// file. Networks that are not in memory need no check of their own: one that stands before a network in
// memory makes that network's id differ from the count, and one behind all of them changes no id.
bool NetworkIds::keepsIds() const {
    unsigned int count = 0;
    return std::all_of(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return !entry.network || (entry.id == count++ && !entry.key.mayBeLeftOut());
    });
}

bool NetworkIds::hasNetworks() const {
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [](const Entry& entry) { return entry.network != nullptr; });
}

bool NetworkIds::confirm(WifiUtil& util, const char* iface) {
    if (!m_isStale || !hasNetworks())
        return true;
    Lines list;
    if (!queryList(util, iface, list))
        return false;
    confirm(list);
    return true;
}

void NetworkIds::confirm(const Lines& list) {
    if (m_isStale)
        take(entriesOf(list));
}

NetworkIds::Entries NetworkIds::entriesOf(const Lines& list) {
    Entries entries;
    for (const std::string& line : list) {
        if (const auto network = listedSsid(line))
            entries.push_back({network->printed, network->id});
    }
    return entries;
}

// The ids stay stale until every network in memory has one.
void NetworkIds::take(Entries listed) {
    Entries lost;
    m_isStale = false;
    for (const Entry& entry : m_entries) {
        if (!entry.network)
            continue;
        Entry* const line = counterpart(entry, listed);
        if (line) {
            line->network = entry.network;
            line->key = entry.key;
        } else {
            lost.push_back({entry.printed, {}, entry.network, entry.key});
        }
        if (line && line->id)
            entry.network->setNetworkId(*line->id);
        else
            m_isStale = true;
    }
    listed.insert(listed.end(), lost.begin(), lost.end());
    m_entries = std::move(listed);
}

// The network at the same place among those with this SSID; null where their number has changed.
NetworkIds::Entry* NetworkIds::counterpart(const Entry& entry, Entries& listed) const {
    std::vector<const Entry*> before;
    std::vector<Entry*> now;
    for (const Entry& other : m_entries) {
        if (other.printed == entry.printed)
            before.push_back(&other);
    }
    for (Entry& other : listed) {
        if (other.printed == entry.printed)
            now.push_back(&other);
    }
    const auto place = std::find(before.begin(), before.end(), &entry) - before.begin();
    return before.size() == now.size() ? now[static_cast<std::size_t>(place)] : nullptr;
}

bool NetworkIds::isKnown(const WifiNetwork& network) const {
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&](const Entry& entry) { return entry.network == &network && entry.id; });
}

} // namespace platwifi
