// The list of the configured networks, and the properties of one.

#include "commands/Commands.h"
#include "display/Json.h"
#include "display/Table.h"
#include "display/Text.h"
#include "edits/PropertyTable.h"
#include "host/Host.h"
#include "host/Ssid.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"

#include <functional>
#include <iostream>

namespace cli {
namespace {

using platwifi::SettingsLock;

using Visit = std::function<void(const std::string& ssid, const WifiNetwork& network)>;

// Visits each network, the last one added first.
void forEachNetwork(Host& host, const Visit& visit) {
    const SettingsLock lock(host.settings());
    for (const std::string& ssid : host.networks()) {
        if (const WifiNetwork* const network = host.settings().getNetwork(nullptr, ssid.c_str()))
            visit(ssid, *network);
    }
}

// The properties in the list, behind the SSID.
constexpr const char* LISTED[] = {"status", "key_mgmt", "priority", "bssid"};

Record listedRecord(const std::string& ssid, const WifiNetwork& network) {
    Record record = {{"ssid", plainSsid(ssid)}};
    for (const char* const name : LISTED)
        record.emplace_back(name, propertyOf(name).read(network));
    return record;
}

Record wholeRecord(const std::string& ssid, const WifiNetwork& network) {
    Record record;
    for (const Property& property : properties()) {
        const bool isName = std::string(property.name) == "ssid";
        record.emplace_back(property.name, isName ? plainSsid(ssid) : property.read(network));
    }
    return record;
}

void showAsTable(const std::string& ssid, const WifiNetwork& network, const Console& console) {
    Table table({{"Property"}, {"Value"}});
    for (const Property& property : properties()) {
        const bool isName = std::string(property.name) == "ssid";
        const std::string value = isName ? shownSsid(ssid) : shown(property, network);
        if (!value.empty())
            table.add({property.name, value});
    }
    table.print(std::cout, console);
}

} // namespace

void listNetworks(Context& context) {
    Host host(context);
    std::vector<Record> records;
    Table table(
        {{"SSID"}, {"Status"}, {"Key management"}, {"Priority", Table::Align::RIGHT}, {"BSSID"}});
    forEachNetwork(host, [&](const std::string& ssid, const WifiNetwork& network) {
        records.push_back(listedRecord(ssid, network));
        std::vector<std::string> row = {shownSsid(ssid)};
        for (const char* const property : LISTED)
            row.push_back(shown(propertyOf(property), network));
        table.add(std::move(row));
    });
    if (context.request.json)
        return printJson(records);
    if (records.empty())
        std::cout << "No network is configured; add one with: platwifi add SSID psk=-\n";
    else
        table.print(std::cout, context.out);
}

void showNetwork(Context& context) {
    Host host(context);
    const std::string ssid = host.network();
    const SettingsLock lock(host.settings());
    const WifiNetwork* const network = host.settings().getNetwork(nullptr, ssid.c_str());
    if (!network)
        throw Failure("the network is gone: another program has removed it");
    if (context.request.json)
        printJson(wholeRecord(ssid, *network));
    else
        showAsTable(ssid, *network, context.out);
}

} // namespace cli
