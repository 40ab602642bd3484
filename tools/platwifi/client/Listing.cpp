#include "client/Listing.h"

#include "settings/replies/Columns.h"
#include "settings/replies/PrintedSsid.h"
#include "settings/replies/WholeLines.h"
#include "supplicant/WifiUtil.h"
#include "values/Failure.h"
#include "values/Lines.h"

namespace cli {
namespace {

constexpr unsigned char MOST_ADAPTERS = 16;

} // namespace

WifiUtil& driver() {
    if (WifiUtil* const util = WifiUtil::getInstance())
        return *util;
    throw Failure("there is no memory left; end some programs, then try again");
}

std::vector<std::string> listedAdapters() {
    bool ok = false;
    return linesOf(MOST_ADAPTERS, ok, [](char** out, unsigned char max, unsigned char* count) {
        return driver().getWifiAdapters(out, max, count);
    });
}

std::vector<ListedNetwork> listedNetworks(const std::string& iface, bool& ok) {
    platwifi::Lines lines;
    ok = platwifi::queryList(driver(), iface.c_str(), lines);
    std::vector<ListedNetwork> networks;
    for (const std::string& line : lines) {
        const auto columns = platwifi::columnsOf(line);
        if (columns.size() > 1)
            networks.push_back({platwifi::bytesOfPrinted(columns[1]),
                                line.find("[TEMP-DISABLED]") != std::string::npos});
    }
    return networks;
}

} // namespace cli
