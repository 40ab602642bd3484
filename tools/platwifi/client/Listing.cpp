#include "client/Listing.h"

#include "settings/replies/Columns.h"
#include "settings/replies/PrintedSsid.h"
#include "supplicant/Timestamp.h"
#include "supplicant/WifiUtil.h"
#include "values/Failure.h"
#include "values/Lines.h"

#include <cstring>

namespace cli {
namespace {

constexpr unsigned char MOST_ADAPTERS = 16;

void removeStamp(std::string& line) {
    if (platwifi::isStamped(line.c_str()) && WifiUtil::ignoreTimestamp(line.data()))
        line.resize(std::strlen(line.c_str()));
}

} // namespace

WifiUtil& driver() {
    if (WifiUtil* const util = WifiUtil::getInstance())
        return *util;
    throw Failure("there is no memory left; end some programs, then try again");
}

std::vector<std::string> listedAdapters() {
    bool ok = false;
    WifiUtil client;
    auto names =
        linesOf(MOST_ADAPTERS, ok, [&](char** out, unsigned char max, unsigned char* count) {
            return client.getWifiAdapters(out, max, count);
        });
    if (!names.empty())
        removeStamp(names.front());
    return names;
}

platwifi::Lines listLines(const std::string& iface, bool& ok) {
    platwifi::Lines lines;
    WifiUtil client;
    ok = platwifi::queryList(client, iface.c_str(), lines);
    return lines;
}

std::vector<ListedNetwork> listedNetworks(const std::string& iface, bool& ok) {
    std::vector<ListedNetwork> networks;
    for (const std::string& line : listLines(iface, ok)) {
        const auto columns = platwifi::columnsOf(line);
        if (columns.size() > 1)
            networks.push_back({platwifi::bytesOfPrinted(columns[1]),
                                line.find("[TEMP-DISABLED]") != std::string::npos});
    }
    return networks;
}

} // namespace cli
