// Forgetting a network: it is removed for good, and the connection to another one stays.

#include "client/Listing.h"
#include "commands/Commands.h"
#include "commands/UnsavedChanges.h"
#include "display/Json.h"
#include "host/Host.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "supplicant/WifiUtil.h"

#include <iostream>

namespace cli {
namespace {

void disconnect(Host& host, const std::string& ssid) {
    if (disconnectFromNetwork(nullptr, host.iface().c_str(), ssid.c_str()) == 0)
        throw Failure("the supplicant did not disconnect from " + shownSsid(ssid) +
                      ", and nothing was changed; platwifi doctor tells more");
}

void report(const Context& context, const std::string& ssid) {
    if (context.request.json)
        printJson(Record{{"ssid", plainSsid(ssid)}, {"done", "forgotten"}});
    else
        std::cout << shownSsid(ssid) << " is forgotten.\n";
}

} // namespace

// After a disconnection the supplicant would look for no other network.
void forgetNetwork(Context& context) {
    Host host(context);
    const std::string ssid = host.network();
    const bool isCurrent = isSameSsid(host.currentNetwork(), ssid);
    context.interrupt.check();
    {
        UnsavedChanges changes(context, host);
        if (isCurrent)
            disconnect(host, ssid);
        changes.remove(ssid);
        changes.save();
    }
    if (isCurrent)
        driver().forceReassociation(host.iface().c_str());
    report(context, ssid);
}

} // namespace cli
