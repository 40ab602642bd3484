// The adapters, and the supplicant's state.

#include "commands/Commands.h"
#include "commands/LinkReport.h"
#include "display/Json.h"
#include "display/SignalBars.h"
#include "display/Text.h"
#include "host/Host.h"
#include "host/Link.h"
#include "host/Ssid.h"
#include "model/Vocabulary.h"

#include <algorithm>
#include <iostream>

namespace cli {
namespace {

constexpr unsigned int LABEL_GAP = 2; // between the labels and the values

struct HostStatus {
    std::string iface;
    LinkState now;
    std::size_t networks;
};

HostStatus statusOf(Context& context) {
    Host host(context);
    HostStatus status;
    status.iface = host.iface();
    status.networks = host.networkCount();
    status.now = host.link();
    return status;
}

Record recordOf(const HostStatus& status) {
    return {{"adapter", status.iface},
            {"state", platwifi::stateText(status.now.state)},
            {"network", status.now.ssid.empty() ? Value() : plainSsid(status.now.ssid)},
            {"networks", static_cast<int>(status.networks)},
            {"link", valueOf(status.now)}};
}

Rows rowsOf(const HostStatus& status) {
    Rows rows = {{"Adapter", printable(status.iface)},
                 {"State", platwifi::stateText(status.now.state)},
                 {"Network", status.now.ssid.empty() ? "none" : shownSsid(status.now.ssid)},
                 {"Networks", std::to_string(status.networks) + " configured"}};
    if (status.now.link) {
        for (auto& row : rowsOf(*status.now.link, isUtf8Locale()))
            rows.push_back(std::move(row));
    }
    return rows;
}

void print(const Rows& rows, const Console& console) {
    std::size_t longest = 0;
    for (const auto& [label, value] : rows)
        longest = std::max(longest, label.size());
    for (const auto& [label, value] : rows) {
        std::string line = label + ":";
        line.append(longest - label.size() + LABEL_GAP, ' ');
        std::cout << cutTo(line += value, console.width) << '\n';
    }
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
    const HostStatus status = statusOf(context);
    if (context.request.json)
        printJson(recordOf(status));
    else
        print(rowsOf(status), context.out);
}

} // namespace cli
