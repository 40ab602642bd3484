#include "settings/replies/ListLine.h"

#include "Profile.h"
#include "model/NetworkFunctions.h"
#include "model/WifiNetwork.h"
#include "settings/replies/Columns.h"
#include "settings/replies/PrintedSsid.h"

#include <cstddef>
#include <cstring>

namespace platwifi {
namespace {

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

ListFlag flagAnywhereIn(const char* text) {
    if (std::strstr(text, "[DISABLED]"))
        return ListFlag::DISABLED;
    return std::strstr(text, "[CURRENT]") ? ListFlag::CURRENT : ListFlag::NONE;
}

} // namespace

ListFlag listFlagIn(const char* line) {
    if (!rule::EMPTY_COLUMNS_COUNT())
        return flagAnywhereIn(line);
    const Columns columns = columnsOf(line);
    return columns.size() >= COLUMNS_OF_LIST ? flagAnywhereIn(columns.back().c_str())
                                             : ListFlag::NONE;
}

void setStatusByFlag(WifiNetwork& network, ListFlag flag) {
    network.setNetworkStatus(statusOf(flag, network.getNetworkStatus()));
}

bool readListLine(const std::string& line, WifiNetwork& network) {
    const auto record = listRecord(line, rule::EMPTY_COLUMNS_COUNT());
    if (!record)
        return false;
    network.setNetworkId(record->id);
    network.setSsid(record->printed.empty() ? NO_SSID : ssidInMemory(record->printed).c_str());
    network.setBssid(record->bssid.empty() ? NO_BSSID : record->bssid.c_str());
    return true;
}

std::optional<int> listedId(const std::string& line) {
    for (const std::string& column : filledColumnsOf(line)) {
        const std::size_t start = column.find_first_not_of(' ');
        if (start != std::string::npos) // what stands behind a blank is not part of the number
            return decimalOf(column.substr(start, column.find(' ', start) - start).c_str());
    }
    return {};
}

} // namespace platwifi
