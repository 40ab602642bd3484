// The access points in range.

#include "commands/Commands.h"
#include "display/Json.h"
#include "display/Table.h"
#include "host/Host.h"
#include "host/ScanResult.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "process/ResultFiles.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <pthread.h>

namespace cli {
namespace {

constexpr unsigned char MAX_RESULTS = 255;

using Results = std::vector<ScanResult>;

void addTo(Results& results, char* line) {
    const std::unique_ptr<char[]> owner(line);
    if (auto result = line ? ScanResult::of(line) : std::nullopt)
        results.push_back(std::move(*result));
}

// Strongest first.
Results inRange(Host& host) {
    char** list = nullptr;
    unsigned char count = 0;
    const bool ok =
        discoverNetworks(nullptr, host.iface().c_str(), &list, MAX_RESULTS, &count) != 0;
    const std::unique_ptr<char*[]> owner(list);
    removeFiles(resultsOf(pthread_self())); // the library keeps that of the last scan
    if (!ok)
        throw Failure(host.iface() + " cannot be scanned; platwifi doctor tells more");
    Results results;
    std::for_each(list, list + count, [&](char* line) { addTo(results, line); });
    std::stable_sort(
        results.begin(), results.end(),
        [](const ScanResult& one, const ScanResult& other) { return one.signal > other.signal; });
    return results;
}

Record recordOf(const ScanResult& result) {
    return {{"ssid", plainSsid(result.ssid)},
            {"bssid", result.bssid},
            {"channel", channelOf(result.frequency)},
            {"frequency", result.frequency},
            {"signal", result.signal},
            {"security", securityOf(result.flags)},
            {"flags", result.flags}};
}

Table tableOf(const Results& results) {
    constexpr auto RIGHT = Table::Align::RIGHT;
    Table table(
        {{"SSID"}, {"BSSID"}, {"Channel", RIGHT}, {"MHz", RIGHT}, {"dBm", RIGHT}, {"Security"}});
    for (const ScanResult& result : results) {
        table.add({shownSsid(result.ssid), result.bssid,
                   std::to_string(channelOf(result.frequency)), std::to_string(result.frequency),
                   std::to_string(result.signal), securityOf(result.flags)});
    }
    return table;
}

} // namespace

void scan(Context& context) {
    Host host(context);
    const Results results = inRange(host);
    context.interrupt.check();
    if (context.request.json) {
        std::vector<Record> records;
        std::transform(results.begin(), results.end(), std::back_inserter(records), recordOf);
        return printJson(records);
    }
    if (results.empty())
        std::cout << "No access point is in range.\n";
    else
        tableOf(results).print(std::cout, context.out);
}

} // namespace cli
