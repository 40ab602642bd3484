#include "client/Listing.h"

#include "client/ProfileInUse.h"
#include "client/Question.h"
#include "settings/replies/Columns.h"
#include "settings/replies/ListParts.h"
#include "settings/replies/PrintedSsid.h"
#include "supplicant/Timestamp.h"
#include "supplicant/WifiUtil.h"
#include "values/Failure.h"
#include "values/Lines.h"

#include <cstring>
#include <sstream>

namespace cli {
namespace {

constexpr unsigned char MOST_ADAPTERS = 16;

void removeStamp(std::string& line) {
    if (platwifi::isStamped(line.c_str()) && WifiUtil::ignoreTimestamp(line.data()))
        line.resize(std::strlen(line.c_str()));
}

// The lines behind the header; empty ones do not count.
platwifi::Lines entriesOf(const std::string& reply) {
    platwifi::Lines entries;
    std::istringstream lines(reply);
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
        if (!line.empty())
            entries.push_back(line);
    }
    return entries;
}

// Without an id, or with one behind which the profile asks for more.
bool askForPart(const std::string& iface, const char* id, platwifi::Lines& part) {
    if (id && !inUse(platwifi::rule::LONG_LISTS_ARE_CONTINUED))
        return true;
    const std::string after = id ? std::string("LAST_ID=") + id : "";
    if (const auto reply = askDirectly(iface, "list_networks", id ? after.c_str() : nullptr)) {
        part = entriesOf(*reply);
        return !reply->empty();
    }
    WifiUtil client;
    return platwifi::queryListPart(client, iface.c_str(), id, part);
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
    ok = platwifi::readList(
        [&](const char* id, platwifi::Lines& part) { return askForPart(iface, id, part); }, lines);
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
