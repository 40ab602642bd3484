// Connecting, disconnecting, and roaming.

#include "commands/Commands.h"
#include "display/Json.h"
#include "display/StateLine.h"
#include "host/ConnectionWatch.h"
#include "host/Host.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/Vocabulary.h"

#include <iomanip>
#include <iostream>
#include <memory>
#include <sstream>

namespace cli {
namespace {

std::string elapsedSeconds(const ConnectionWatch& watch) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1)
         << std::chrono::duration<double>(watch.elapsed()).count();
    return text.str();
}

[[noreturn]] void refuse(const std::string& what) {
    throw Failure("the supplicant did not accept to " + what + "; platwifi doctor tells more");
}

void run(ConnectionWatch& watch, const Context& context, const std::string& ssid) {
    std::unique_ptr<StateLine> line;
    if (!context.request.json)
        line = std::make_unique<StateLine>(context.out, "Connecting to " + shownSsid(ssid) + ":");
    try {
        watch.run(line.get());
    } catch (Interrupted& end) {
        end.message = "interrupted; the supplicant goes on trying: platwifi disconnect ends that";
        throw;
    }
}

[[noreturn]] void fail(const ConnectionWatch& watch, const std::string& ssid) {
    throw Failure(shownSsid(ssid) + " is not connected after " + elapsedSeconds(watch) +
                  " s, the last state is " + platwifi::stateText(watch.attempt().last()) + ": " +
                  watch.attempt().likelyCause());
}

} // namespace

void connectNetwork(Context& context) {
    Host host(context);
    const std::string ssid = host.network();
    if (connectToNetwork(nullptr, host.iface().c_str(), ssid.c_str()) == 0)
        refuse("connect to " + shownSsid(ssid));
    ConnectionWatch watch(context, host, ssid);
    run(watch, context, ssid);
    if (!watch.attempt().isComplete())
        fail(watch, ssid);
    const char* const state = platwifi::stateText(watch.attempt().last());
    if (context.request.json)
        return printJson(Record{{"ssid", plainSsid(ssid)}, {"state", state}});
    std::cout << "Connected to " << shownSsid(ssid) << " after " << elapsedSeconds(watch)
              << " s.\n";
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
