#include "host/ListedNames.h"

#include "display/Text.h"
#include "host/Lines.h"
#include "host/Ssid.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>

namespace cli {
namespace {

constexpr unsigned char MOST_ADAPTERS = 16;
constexpr unsigned char MOST_LINES = 64; // two for each network
constexpr std::size_t LONGEST_PIECE = 127;
constexpr std::ptrdiff_t TABS = 3; // number, SSID, BSSID, flags

std::ptrdiff_t tabsIn(const std::string& line) {
    return std::count(line.begin(), line.end(), '\t');
}

// A long line arrives in pieces.
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

// What the library takes for a network without a name cannot be asked for by this one.
bool isName(const std::string& ssid) {
    return !ssid.empty() && ssid != "any" && ssid.find(':') == std::string::npos;
}

std::string typed(const std::string& notation) {
    const std::string bytes = bytesOfSsid(notation);
    return printable(bytes) == bytes && bytesOfSsid(bytes) == bytes ? bytes : notation;
}

} // namespace

std::vector<std::string> listedAdapters() {
    WifiUtil* const util = WifiUtil::getInstance();
    bool ok = util != nullptr;
    if (!ok)
        return {};
    return linesOf(MOST_ADAPTERS, ok, [util](char** out, unsigned char max, unsigned char* count) {
        return util->getWifiAdapters(out, max, count);
    });
}

std::vector<std::string> listedSsids() {
    const auto adapters = listedAdapters();
    if (adapters.empty())
        return {};
    bool ok = false;
    const auto pieces =
        linesOf(MOST_LINES, ok, [&](char** out, unsigned char max, unsigned char* count) {
            return WifiUtil::getInstance()->getNetworkDatabaseSsids(adapters.front().c_str(), out,
                                                                    max, count);
        });
    std::vector<std::string> ssids;
    for (const std::string& line : joined(pieces)) {
        const std::size_t start = line.find('\t') + 1;
        const std::string ssid = line.substr(start, line.find('\t', start) - start);
        if (start > 0 && isName(ssid))
            ssids.push_back(typed(ssid));
    }
    return ssids;
}

} // namespace cli
