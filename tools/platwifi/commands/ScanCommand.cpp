// The access points in range.

#include "client/Listing.h"
#include "commands/Commands.h"
#include "display/Json.h"
#include "display/SignalBars.h"
#include "display/Table.h"
#include "display/Text.h"
#include "host/Host.h"
#include "host/Link.h"
#include "host/ScanOrder.h"
#include "host/ScanResult.h"
#include "host/Ssid.h"
#include "model/Radio.h"
#include "process/ResultFiles.h"
#include "settings/replies/WholeLines.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <pthread.h>

namespace cli {
namespace {

constexpr std::size_t MAX_RESULTS = 255; // that the library reads

using Results = std::vector<ScanResult>;

// The flat function of the library cuts long lines, and with them the SSID at their end.
Results inRange(Host& host) {
    const std::string& iface = host.iface();
    platwifi::Lines lines;
    const bool ok = driver().scanNetworks(iface.c_str()) &&
                    platwifi::queryScan(driver(), iface.c_str(), lines, MAX_RESULTS);
    removeFiles(resultsOf(pthread_self())); // the library keeps that of the last scan
    if (!ok)
        throw Failure(iface + " cannot be scanned; platwifi doctor tells more");
    Results results;
    for (const std::string& line : lines) {
        if (auto result = ScanResult::of(line))
            results.push_back(std::move(*result));
    }
    return results;
}

/// Those that are saved, and the one that the interface is connected to.
class KnownNetworks {
public:
    explicit KnownNetworks(const std::string& iface) : m_now(LinkState::briefly(iface)) {
        bool ok = false;
        m_networks = listedNetworks(iface, ok);
    }

    bool isConnected(const ScanResult& result) const {
        return m_now.link && m_now.link->bssid == result.bssid;
    }

    bool isSaved(const ScanResult& result) const {
        return std::any_of(m_networks.begin(), m_networks.end(), [&](const ListedNetwork& network) {
            return !result.ssid.empty() && isSameSsid(network.ssid, result.ssid);
        });
    }

    const char* markOf(const ScanResult& result) const {
        if (isConnected(result))
            return "*";
        return isSaved(result) ? "+" : "";
    }

private:
    const LinkState m_now;
    std::vector<ListedNetwork> m_networks;
};

Record recordOf(const ScanResult& result, const KnownNetworks& known) {
    const std::string band = bandOf(result.frequency);
    return {{"ssid", plainSsid(result.ssid)},
            {"bssid", result.bssid},
            {"channel", channelOf(result.frequency)},
            {"band", band.empty() ? Value() : band},
            {"frequency", result.frequency},
            {"signal", result.signal},
            {"percent", platwifi::percentOf(result.signal)},
            {"security", securityOf(result.flags)},
            {"flags", result.flags},
            {"connected", known.isConnected(result)},
            {"saved", known.isSaved(result)}};
}

// The bars and the percent, which have the same width in all rows.
std::string signalCell(int signal, bool hasBlocks) {
    const int percent = platwifi::percentOf(signal);
    const std::string number = std::to_string(percent) + "%";
    const std::size_t blanks = std::string(" 100%").size() - number.size();
    return signalBars(percent, hasBlocks) + std::string(blanks, ' ') + number;
}

// The band without its unit, which the heading has.
std::string bandCell(int frequency) {
    const std::string band = bandOf(frequency);
    return band.substr(0, band.find(' '));
}

Table tableOf(const Results& results, const KnownNetworks& known) {
    constexpr auto RIGHT = Table::Align::RIGHT;
    constexpr bool WHOLE = true;
    const bool hasBlocks = isUtf8Locale();
    Table table({{""},
                 {"SSID"},
                 {"BSSID", Table::Align::LEFT, WHOLE},
                 {"Ch", RIGHT, WHOLE},
                 {"GHz", RIGHT, WHOLE},
                 {"Signal", Table::Align::LEFT, WHOLE},
                 {"dBm", RIGHT, WHOLE},
                 {"Security"}});
    for (const ScanResult& result : results) {
        table.add({known.markOf(result), shownSsid(result.ssid), result.bssid,
                   std::to_string(channelOf(result.frequency)), bandCell(result.frequency),
                   signalCell(result.signal, hasBlocks), std::to_string(result.signal),
                   securityOf(result.flags)});
    }
    return table;
}

void print(const Results& results, const KnownNetworks& known, const Console& console) {
    if (results.empty()) {
        std::cout << "No access point is in range.\n";
        return;
    }
    tableOf(results, known).print(std::cout, console);
    const bool hasMarks =
        std::any_of(results.begin(), results.end(),
                    [&](const ScanResult& result) { return *known.markOf(result) != '\0'; });
    if (hasMarks)
        std::cout << cutTo("* connected, + saved", console.width) << '\n';
}

} // namespace

void scan(Context& context) {
    Host host(context);
    Results results = inRange(host);
    context.interrupt.check();
    const KnownNetworks known(host.iface());
    context.interrupt.check();
    sortBy(context.request.sort, results);
    if (!context.request.json)
        return print(results, known, context.out);
    std::vector<Record> records;
    std::transform(results.begin(), results.end(), std::back_inserter(records),
                   [&](const ScanResult& result) { return recordOf(result, known); });
    printJson(records);
}

} // namespace cli
