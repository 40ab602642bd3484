#include "settings/replies/ListLine.h"

#include "Profile.h"
#include "model/NetworkFunctions.h"
#include "model/WifiNetwork.h"
#include "settings/replies/Columns.h"
#include "settings/replies/PrintedSsid.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace platwifi {
namespace {

constexpr std::size_t ALL_COLUMNS = 4; // id, SSID, BSSID, flags
constexpr std::size_t MOST_DIGITS = 3;
constexpr int LARGEST_ID = 255;

bool isAddress(const std::string& column) {
    return column.find(':') != std::string::npos;
}

std::optional<unsigned char> idFrom(const std::string& text) {
    if (text.empty() || text.size() > MOST_DIGITS ||
        text.find_first_not_of("0123456789") != std::string::npos)
        return {};
    const int id = std::atoi(text.c_str());
    return id <= LARGEST_ID ? std::optional(static_cast<unsigned char>(id)) : std::nullopt;
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

ListFlag flagAnywhereIn(const char* text) {
    if (std::strstr(text, "[DISABLED]"))
        return ListFlag::DISABLED;
    return std::strstr(text, "[CURRENT]") ? ListFlag::CURRENT : ListFlag::NONE;
}

bool readColumns(const std::string& line, WifiNetwork& network) {
    const std::optional<ListedSsid> listed = listedSsid(line);
    if (!listed || !listed->id)
        return false;
    const Columns columns = columnsOf(line);
    const bool hasBssid = columns.size() >= ALL_COLUMNS && isAddress(columns[2]);
    const bool hasSsid = !listed->printed.empty();
    network.setNetworkId(*listed->id);
    network.setSsid(hasSsid ? ssidInMemory(listed->printed).c_str() : NO_SSID);
    network.setBssid(hasBssid ? columns[2].c_str() : NO_BSSID);
    return true;
}

} // namespace

ListFlag listFlagIn(const char* line) {
    if (!rule::EMPTY_COLUMNS_COUNT())
        return flagAnywhereIn(line);
    const Columns columns = columnsOf(line);
    return columns.size() >= ALL_COLUMNS ? flagAnywhereIn(columns.back().c_str()) : ListFlag::NONE;
}

void setStatusByFlag(WifiNetwork& network, ListFlag flag) {
    network.setNetworkStatus(statusOf(flag, network.getNetworkStatus()));
}

bool readListLine(const std::string& line, WifiNetwork& network) {
    if (rule::EMPTY_COLUMNS_COUNT())
        return readColumns(line, network);
    const Columns columns = filledColumnsOf(line);
    const bool hasSsid = columns.size() > 1 && !isBssidColumn(columns[1]);
    const std::size_t bssidAt = hasSsid ? 2 : 1;
    if (columns.size() <= bssidAt)
        return false;
    const std::string& bssid = columns[bssidAt];
    network.setNetworkId(static_cast<unsigned char>(decimalOf(columns[0].c_str())));
    network.setSsid(hasSsid ? columns[1].c_str() : NO_SSID); // quirk: LOAD-8
    network.setBssid(isAddress(bssid) ? bssid.c_str() : NO_BSSID);
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

// With all four columns the second is the SSID, whatever it looks like. With fewer, an SSID that can be a
// BSSID counts as none.
std::optional<ListedSsid> listedSsid(const std::string& line) {
    const Columns columns = columnsOf(line);
    if (columns.size() < 2)
        return {};
    const bool isSsid = columns.size() >= ALL_COLUMNS || !isBssidColumn(columns[1]);
    return ListedSsid{idFrom(columns[0]), isSsid ? columns[1] : ""};
}

} // namespace platwifi
