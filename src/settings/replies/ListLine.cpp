#include "settings/replies/ListLine.h"

#include "model/NetworkFunctions.h"
#include "model/WifiNetwork.h"
#include "settings/replies/Decimal.h"
#include "settings/replies/LineFields.h"

#include <cstring>

namespace platwifi {
namespace {

bool isAddress(const char* field) {
    return std::strchr(field, ':') != nullptr;
}

bool isBssidColumn(const char* field) {
    return std::strcmp(field, "any") == 0 || isAddress(field);
}

unsigned int statusOf(ListFlag flag, unsigned int present) {
    switch (flag) {
    case ListFlag::DISABLED:
        return NETWORK_STATUS_DISABLED;
    case ListFlag::CURRENT: // it is so while connecting, too
        return present == NETWORK_STATUS_CONNECTED ? present : NETWORK_STATUS_CONNECTING;
    case ListFlag::NONE:
        break;
    }
    return NETWORK_STATUS_ENABLED;
}

} // namespace

ListFlag listFlagIn(const char* line) {
    if (std::strstr(line, "[DISABLED]"))
        return ListFlag::DISABLED;
    return std::strstr(line, "[CURRENT]") ? ListFlag::CURRENT : ListFlag::NONE;
}

void setStatusByFlag(WifiNetwork& network, ListFlag flag) {
    network.setNetworkStatus(statusOf(flag, network.getNetworkStatus()));
}

bool readListLine(const char* line, WifiNetwork& network) {
    LineFields fields(line, "\t");
    const char* const id = fields.next();
    const char* const second = fields.next();
    if (!id || !second)
        return false;
    const bool hasSsid = !isBssidColumn(second);
    const char* const bssid = hasSsid ? fields.next() : second;
    if (!bssid)
        return false;
    network.setNetworkId(static_cast<unsigned char>(decimalOf(id)));
    network.setSsid(hasSsid ? second : NO_SSID);
    network.setBssid(isAddress(bssid) ? bssid : NO_BSSID);
    return true;
}

} // namespace platwifi
