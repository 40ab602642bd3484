// The list of the configured networks, and the properties of one.

#include "commands/Commands.h"
#include "commands/LinkReport.h"
#include "display/Json.h"
#include "display/SignalBars.h"
#include "display/Table.h"
#include "display/Text.h"
#include "edits/PropertyTable.h"
#include "host/Host.h"
#include "host/Link.h"
#include "host/ScanResult.h"
#include "host/Ssid.h"
#include "model/Radio.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"

#include <cstring>
#include <functional>
#include <iostream>
#include <optional>

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

// The connection, if it is one to this network.
LinkState linkTo(const std::string& ssid, const std::string& iface) {
    LinkState now = LinkState::now(iface);
    return isSameSsid(now.ssid, ssid) ? now : LinkState();
}

bool hasName(const Property& property, const char* name) {
    return std::strcmp(property.name, name) == 0;
}

// What the last scan has found out; nothing for a network that is out of range, which has no channel.
Value scanned(const Property& property, const WifiNetwork& network) {
    return network.getChannel() == 0 ? Value() : property.read(network);
}

// The signal and the channel of a connection are those of now: a scan may have been long ago, and is
// forgotten after some time.
Value radioValue(const Property& property, const WifiNetwork& network,
                 const std::optional<Link>& link) {
    if (!link)
        return scanned(property, network);
    if (hasName(property, "strength"))
        return link->signal ? platwifi::percentOf(*link->signal) : Value();
    return link->frequency ? channelOf(*link->frequency) : Value();
}

bool isOfRadio(const Property& property) {
    return hasName(property, "strength") || hasName(property, "channel");
}

struct Shown {
    const std::string& ssid;
    const WifiNetwork& network;
    const LinkState now; // without a connection unless it is one to this network
};

Value valueOf(const Property& property, const Shown& shown) {
    if (hasName(property, "ssid"))
        return plainSsid(shown.ssid);
    if (isOfRadio(property))
        return radioValue(property, shown.network, shown.now.link);
    return property.read(shown.network);
}

// "" for what is not known.
std::string textOf(const Property& property, const Shown& all) {
    if (hasName(property, "ssid"))
        return shownSsid(all.ssid);
    if (!isOfRadio(property))
        return shown(property, all.network);
    const Value value = valueOf(property, all);
    const int* const number = std::get_if<int>(&value);
    return number ? std::to_string(*number) : "";
}

Record wholeRecord(const Shown& shown) {
    Record record;
    for (const Property& property : properties())
        record.emplace_back(property.name, valueOf(property, shown));
    record.emplace_back("link", valueOf(shown.now));
    return record;
}

void printLink(const Link& link, const Console& console) {
    Table table({{"Link"}, {"Value"}});
    for (const auto& [label, value] : rowsOf(link, isUtf8Locale()))
        table.add({label, value});
    std::cout << '\n';
    table.print(std::cout, console);
}

void printText(const Shown& shown, const Console& console) {
    Table table({{"Property"}, {"Value"}});
    for (const Property& property : properties()) {
        const std::string value = textOf(property, shown);
        if (!value.empty())
            table.add({property.name, value});
    }
    table.print(std::cout, console);
    if (shown.now.link)
        printLink(*shown.now.link, console);
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
    LinkState now = linkTo(ssid, host.iface());
    context.interrupt.check();
    const SettingsLock lock(host.settings());
    const WifiNetwork* const network = host.settings().getNetwork(nullptr, ssid.c_str());
    if (!network)
        throw Failure("the network is gone: another program has removed it");
    const Shown shown{ssid, *network, std::move(now)};
    if (context.request.json)
        printJson(wholeRecord(shown));
    else
        printText(shown, context.out);
}

} // namespace cli
