// Which number the supplicant has given to which network.

#include "settings/NetworkNumbers.h"

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/ListedSsid.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>

using namespace platwifi;

namespace {

// More than loading takes: networks added since then stand behind those.
constexpr unsigned char LIST_LINES = 255;

const char* ssidOf(const WifiNetwork& network, const KnownSsids& known) {
    const auto found = known.find(&network);
    return found == known.end() ? network.getSsid() : found->second.c_str();
}

const ListedSsid* find(const std::vector<ListedSsid>& listed, const char* ssid) {
    const auto found = std::find_if(listed.begin(), listed.end(), [&](const ListedSsid& line) {
        return ssid && line.isOf(ssid);
    });
    return found == listed.end() ? nullptr : &*found;
}

} // namespace

void platwifi::takeNumbers(const ReplyLines& reply, WifiNetworkList& list, const KnownSsids& known,
                           UnnumberedNetworks& unnumbered) {
    const std::vector<ListedSsid> listed = listedSsids(reply);
    for (WifiNetwork* network = list.getHead(); network; network = network->getNext()) {
        if (const ListedSsid* const line = find(listed, ssidOf(*network, known)))
            network->setNetworkId(line->number);
        else
            unnumbered.insert(network);
    }
}

bool platwifi::confirmNumbers(WifiUtil& util, const char* iface, WifiNetworkList& list,
                              const KnownSsids& known, UnnumberedNetworks& unnumbered) {
    ReplyLines reply(LIST_LINES);
    if (!util.getNetworkDatabaseSsids(iface, reply.data(), reply.capacity(), &reply.count))
        return false;
    takeNumbers(reply, list, known, unnumbered);
    return true;
}

KnownSsids platwifi::knownAfterSave(const WifiNetworkList& list, const KnownSsids& before) {
    KnownSsids known;
    for (const WifiNetwork* network = list.getHead(); network; network = network->getNext()) {
        const auto old = before.find(network);
        if (!network->getSsidDirty() && network->getSsid())
            known[network] = network->getSsid();
        else if (old != before.end())
            known.insert(*old);
    }
    return known;
}
