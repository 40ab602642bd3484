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

const ListedSsid* find(const std::vector<ListedSsid>& listed, const WifiNetwork& network) {
    const auto found = std::find_if(listed.begin(), listed.end(), [&](const ListedSsid& line) {
        return network.getSsid() && line.isOf(network.getSsid());
    });
    return found == listed.end() ? nullptr : &*found;
}

} // namespace

bool platwifi::confirmNumbers(WifiUtil& util, const char* iface, WifiNetworkList& list,
                              UnnumberedNetworks& unnumbered) {
    ReplyLines reply(LIST_LINES);
    if (!util.getNetworkDatabaseSsids(iface, reply.data(), reply.capacity(), &reply.count))
        return false;
    const std::vector<ListedSsid> listed = listedSsids(reply);
    for (WifiNetwork* network = list.getHead(); network; network = network->getNext())
        if (const ListedSsid* const line = find(listed, *network))
            network->setNetworkId(line->number);
        else
            unnumbered.insert(network);
    return true;
}
