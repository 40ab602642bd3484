// The queries: adapters, networks, scan results and status; and the scan.

#include "Profile.h"
#include "TextCopy.h"
#include "model/WifiTypes.h"
#include "platform/PlatformUtil.h"
#include "supplicant/ClientCommand.h"
#include "supplicant/Reply.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include <string>

using namespace platwifi;

namespace {

constexpr int SCAN_PAUSE_MS = 1000;
constexpr int LAST_SCAN_PASS = 15;

struct ListQuery {
    const ClientCommand& command;
    int headerLines;
    bool stampsFirstEntry; // whether a client that stamps its replies stamps the first entry
};

constexpr ListQuery ADAPTERS{command::INTERFACE, 2, true};
constexpr ListQuery CONFIGURED_NETWORKS{command::LIST_NETWORKS, 1, false};
constexpr ListQuery FOUND_NETWORKS{command::SCAN_RESULTS, 1, false};
constexpr ListQuery CURRENT_STATUS{command::STATUS, 0, true};

// The array of the caller, into which a list query puts copies of the lines.
struct LineArray {
    char** out;
    unsigned char max;
    unsigned char* count;

    bool isUsable() const { return out && count; }
    bool isFull() const { return *count >= max; }

    void add(const char* line) { out[(*count)++] = copyOf(line); }
};

void readEntries(ResultFile& result, const ListQuery& query, bool stamped, LineArray array) {
    ReplyLine line;
    for (int i = 0; i < query.headerLines; ++i)
        line.readFrom(result);
    while (line.readFrom(result) && !array.isFull()) {
        if (line.text[0] == '\0')
            continue;
        if (stamped && query.stampsFirstEntry && *array.count == 0)
            WifiUtil::ignoreTimestamp(line.text);
        array.add(line.text);
    }
}

bool readReply(ResultFile& result, const ListQuery& query, bool stamped, LineArray array) {
    if (!result.open())
        return false;
    readEntries(result, query, stamped, array);
    return true;
}

bool listFor(PlatformMutex& launchMutex, const ListQuery& query, const char* iface, bool stamped,
             LineArray array, const ArgumentList& arguments = {}) {
    if (!array.isUsable())
        return false;
    *array.count = 0;
    ResultFile result(query.command.resultPrefix);
    return runClient(launchMutex, query.command, InterfaceOption(iface), result, arguments) &&
           readReply(result, query, stamped, array);
}

bool readState(WifiUtil& util, const char* iface, WpaState& state) {
    ReplyLines status(STATUS_LINES);
    if (!util.getCurrentNetworkStatus(iface, status.data(), status.capacity(), &status.count))
        return false;
    state = stateOf(status.data(), status.count);
    return true;
}

bool scanIsDue(WpaState state) {
    return state != WPA_STATE_UNKNOWN && state != WPA_STATE_SCANNING;
}

bool startScan(PlatformMutex& launchMutex, const char* iface) {
    ResultFile result(command::SCAN.resultPrefix);
    if (!runClient(launchMutex, command::SCAN, InterfaceOption(iface), result))
        return false;
    result.keep(); // never read; the thread's next scan overwrites it
    return true;
}

void waitForScan(WifiUtil& util, const char* iface) {
    for (int pass = 0; pass <= LAST_SCAN_PASS; ++pass) {
        WpaState state = WPA_STATE_UNKNOWN;
        if (!readState(util, iface, state))
            return;
        PlatformUtil::sleep(SCAN_PAUSE_MS);
        if (state != WPA_STATE_SCANNING)
            return;
    }
}

} // namespace

bool WifiUtil::getWifiAdapters(char** out, unsigned char max, unsigned char* count) {
    const LineArray array{out, max, count};
    if (!array.isUsable())
        return false;
    ResultFile result(ADAPTERS.command.resultPrefix);
    return runClient(launchMutex, ADAPTERS.command, result) &&
           readReply(result, ADAPTERS, timestampedOutput == 1, array);
}

bool WifiUtil::getNetworkDatabaseSsids(const char* iface, char** out, unsigned char max,
                                       unsigned char* count) {
    return listFor(launchMutex, CONFIGURED_NETWORKS, iface, timestampedOutput == 1,
                   {out, max, count});
}

bool WifiUtil::getNetworksAfter(const char* iface, const char* id, char** out, unsigned char max,
                                unsigned char* count) {
    if (!rule::LONG_LISTS_ARE_CONTINUED()) {
        if (count)
            *count = 0;
        return true;
    }
    const std::string after = std::string("LAST_ID=") + id;
    return listFor(launchMutex, CONFIGURED_NETWORKS, iface, timestampedOutput == 1,
                   {out, max, count}, {after.c_str()});
}

bool WifiUtil::discoverNetworks(const char* iface, char** out, unsigned char max,
                                unsigned char* count) {
    return listFor(launchMutex, FOUND_NETWORKS, iface, timestampedOutput == 1, {out, max, count});
}

bool WifiUtil::getCurrentNetworkStatus(const char* iface, char** out, unsigned char max,
                                       unsigned char* count) {
    return listFor(launchMutex, CURRENT_STATUS, iface, timestampedOutput == 1, {out, max, count});
}

bool WifiUtil::scanNetworks(const char* iface) {
    WpaState state = WPA_STATE_UNKNOWN;
    if (!readState(*this, iface, state))
        return false;
    if (scanIsDue(state) && !startScan(launchMutex, iface))
        return false;
    waitForScan(*this, iface);
    return true; // also when a status could not be read while waiting
}
