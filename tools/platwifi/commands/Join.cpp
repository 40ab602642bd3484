// The command join, and what it reports.

#include "commands/Commands.h"
#include "commands/Joining.h"
#include "commands/LinkReport.h"
#include "connection/Connecting.h"
#include "display/Json.h"
#include "host/Link.h"
#include "host/Ssid.h"
#include "process/StandardStreams.h"

#include <iostream>

namespace cli {
namespace {

Record recordOf(const Joined& joined, const LinkState& now) {
    return {{"ssid", plainSsid(joined.ssid)},
            {"done", std::string("joined")},
            {"saved", joined.isSaved},
            {"security", joined.security.empty() ? Value() : joined.security},
            {"link", valueOf(now)},
            {"cause", Value()}};
}

std::string textOf(const Link& link) {
    const std::string address = link.ipv4.empty() ? link.ipv6 : link.ipv4;
    return link.bssid + (link.signal ? ", " + std::to_string(*link.signal) + " dBm" : "") +
           (address.empty() ? ", no address yet" : ", " + address);
}

void report(const Context& context, const Joined& joined) {
    const LinkState now = LinkState::now(joined.iface);
    if (context.request.json)
        return printJson(recordOf(joined, now));
    std::cout << "Connected to " << shownSsid(joined.ssid) << " after " << secondsText(joined.time)
              << " s" << (now.link ? ": " + textOf(*now.link) : "") << ".\n";
    if (joined.isSaved)
        std::cout << shownSsid(joined.ssid) << " is saved.\n";
}

} // namespace

void joinNetwork(Context& context) {
    try {
        report(context, join(context));
    } catch (const ConnectionFailure& failure) {
        if (context.request.json)
            printJson(failureRecord(failure));
        flushOutput();
        throw;
    }
}

} // namespace cli
