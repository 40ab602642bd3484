// The adapters, and the supplicant's state.

#include "commands/Commands.h"
#include "display/Json.h"
#include "display/Table.h"
#include "display/Text.h"
#include "host/Host.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/Vocabulary.h"

#include <iostream>

namespace cli {
namespace {

struct HostStatus {
    std::string iface;
    unsigned int state;
    std::string network; // "" for none
    std::size_t networks;
};

HostStatus statusOf(Host& host) {
    HostStatus status;
    status.networks = host.networks().size();
    status.iface = host.iface();
    status.state = static_cast<unsigned int>(getDaemonStatus(nullptr, status.iface.c_str()));
    status.network = host.currentNetwork();
    return status;
}

Record recordOf(const HostStatus& status) {
    return {{"adapter", status.iface},
            {"state", platwifi::stateText(status.state)},
            {"network", status.network.empty() ? Value() : plainSsid(status.network)},
            {"networks", static_cast<int>(status.networks)}};
}

} // namespace

void showAdapters(Context& context) {
    Host host(context);
    host.iface();
    const auto& adapters = host.adapters();
    if (context.request.json)
        return printJson(adapters);
    const std::string defaultAdapter = adapters.size() > 1 ? adapters.front() : "";
    for (const std::string& adapter : adapters)
        std::cout << printable(adapter) << (adapter == defaultAdapter ? " (the default)" : "")
                  << '\n';
}

void showStatus(Context& context) {
    Host host(context);
    const HostStatus status = statusOf(host);
    if (context.request.json)
        return printJson(recordOf(status));
    const std::string network = status.network.empty() ? "none" : shownSsid(status.network);
    const std::string lines[] = {
        "Adapter:   " + printable(status.iface),
        std::string("State:     ") + platwifi::stateText(status.state),
        "Network:   " + network,
        "Networks:  " + std::to_string(status.networks) + " configured",
    };
    for (const std::string& line : lines)
        std::cout << cutTo(line, context.out.width) << '\n';
}

} // namespace cli
