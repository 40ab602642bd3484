#include "client/Listing.h"

#include "settings/replies/Columns.h"
#include "supplicant/WifiUtil.h"
#include "values/Failure.h"
#include "values/Lines.h"

#include <algorithm>

namespace cli {
namespace {

constexpr unsigned char MOST_ADAPTERS = 16;
constexpr unsigned char MOST_LINES = 64; // two for each network
constexpr std::size_t LONGEST_PIECE = 127;
constexpr std::ptrdiff_t TABS = 3; // network id, SSID, BSSID, flags

std::ptrdiff_t tabsIn(const std::string& line) {
    return std::count(line.begin(), line.end(), '\t');
}

// The driver hands out a long line in pieces.
std::vector<std::string> joined(const std::vector<std::string>& pieces) {
    std::vector<std::string> lines;
    for (const std::string& piece : pieces) {
        if (!lines.empty() && lines.back().size() == LONGEST_PIECE && tabsIn(lines.back()) < TABS)
            lines.back() += piece;
        else
            lines.push_back(piece);
    }
    return lines;
}

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
    const auto pieces =
        linesOf(MOST_LINES, ok, [&](char** out, unsigned char max, unsigned char* count) {
            return driver().getNetworkDatabaseSsids(iface.c_str(), out, max, count);
        });
    std::vector<ListedNetwork> networks;
    for (const std::string& line : joined(pieces)) {
        const auto columns = platwifi::columnsOf(line);
        if (columns.size() > 1)
            networks.push_back({columns[1], line.find("[TEMP-DISABLED]") != std::string::npos});
    }
    return networks;
}

} // namespace cli
