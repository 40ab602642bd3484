// Connecting, disconnecting, and roaming.

#include "commands/Commands.h"
#include "connection/Connecting.h"
#include "display/Json.h"
#include "host/Host.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "process/StandardStreams.h"

#include <iostream>

namespace cli {
namespace {

[[noreturn]] void refuse(const std::string& what) {
    throw Failure("the supplicant did not accept to " + what + "; platwifi doctor tells more");
}

// The message of the failure follows on standard error.
void printFailureJson(const ConnectionFailure& failure) {
    printJson(failureRecord(failure));
    flushOutput();
}

} // namespace

void connectNetwork(Context& context) {
    Host host(context);
    const std::string ssid = host.network();
    try {
        const auto time = connectAndWait(context, host, ssid);
        if (context.request.json)
            return printJson(connectedRecord(ssid));
        std::cout << "Connected to " << shownSsid(ssid) << " after " << secondsText(time)
                  << " s.\n";
    } catch (const ConnectionFailure& failure) {
        if (context.request.json)
            printFailureJson(failure);
        throw;
    }
}

void disconnectNetwork(Context& context) {
    Host host(context);
    host.settings();
    const bool isNamed = !context.request.ssid.empty();
    const std::string ssid = isNamed ? host.network() : host.currentNetwork();
    if (ssid.empty())
        throw Failure(
            "there is no connection to end; platwifi status tells what the supplicant does");
    if (disconnectFromNetwork(nullptr, host.iface().c_str(), ssid.c_str()) == 0)
        refuse("disconnect from " + shownSsid(ssid));
    if (context.request.json)
        printJson(Record{{"ssid", plainSsid(ssid)}, {"done", "disconnected"}});
    else
        std::cout << "Disconnected from " << shownSsid(ssid) << ".\n";
}

void roam(Context& context) {
    Host host(context);
    host.settings();
    if (roamNetworks(nullptr, host.iface().c_str()) == 0)
        refuse("roam");
    if (context.request.json)
        printJson(Record{{"done", "roaming"}});
    else
        std::cout << "All networks are enabled; the supplicant chooses among them.\n";
}

} // namespace cli
