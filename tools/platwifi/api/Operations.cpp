#include "api/Operations.h"

#include "api/JavaValues.h"
#include "client/Listing.h"
#include "commands/Joining.h"
#include "commands/LinkReport.h"
#include "commands/UnsavedChanges.h"
#include "connection/AccessPoints.h"
#include "connection/Connecting.h"
#include "edits/Edits.h"
#include "edits/PropertyTable.h"
#include "host/BestSecurity.h"
#include "host/Capabilities.h"
#include "host/ScanOrder.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/Radio.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>
#include <chrono>

namespace cli::api {
namespace {

using platwifi::SettingsLock;

[[noreturn]] void refuse(const std::string& what) {
    throw Failure("the supplicant did not accept to " + what + "; platwifi doctor tells more");
}

Record recordOf(const ScanResult& result) {
    const auto security = bestSecurity({result.flags}, ALL_METHODS);
    return {{"ssid", hexOf(result.ssid)},
            {"bssid", result.bssid},
            {"frequency", result.frequency},
            {"channel", channelOf(result.frequency)},
            {"signal", result.signal},
            {"percent", platwifi::percentOf(result.signal)},
            {"security", security ? Value(security->name) : Value()},
            {"offered", securityOf(result.flags)}};
}

Record recordOf(const WifiNetwork& network) {
    Record record;
    for (const Property& property : properties())
        record.emplace_back(property.name, shown(property, network));
    return record;
}

bool isKnown(Host& host, const std::string& ssid) {
    const auto all = host.networks();
    return std::find(all.begin(), all.end(), ssid) != all.end();
}

void requireKnown(Host& host, const std::string& ssid) {
    if (!isKnown(host, ssid))
        throw Failure("there is no network " + shownSsid(ssid) +
                      "; Wifi.networks() lists what there is");
}

/// Edits that are not saved yet. Takes back those that the supplicant and the memory of this process have unless
/// they are saved. Holds the lock of the settings, so that no reload discards edits meanwhile.
class Block {
public:
    Block(Context& context, Host& host)
        : m_context(context), m_host(host), m_lock(host.settings()) {}
    ~Block() {
        if (m_isSaved)
            return;
        driver().reloadConfiguration(m_host.iface().c_str());
        m_host.settings().refreshAllSettings();
    }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    /// @param edits  of the step
    void make(const Step& step, const Edits& edits);
    void save();

private:
    void add(const Step& step, const Edits& edits);
    void change(const Step& step, const Edits& edits);
    void remove(const Step& step);

    Context& m_context;
    Host& m_host;
    const SettingsLock m_lock;
    bool m_isSaved = false;
};

void Block::make(const Step& step, const Edits& edits) {
    m_context.interrupt.check();
    switch (step.kind) {
    case Step::Kind::ADD:
        return add(step, edits);
    case Step::Kind::CHANGE:
        return change(step, edits);
    case Step::Kind::REMOVE:
        return remove(step);
    }
}

void Block::add(const Step& step, const Edits& edits) {
    if (isKnown(m_host, step.ssid))
        throw Failure(shownSsid(step.ssid) + " is configured already; change it with Wifi.save()");
    if (addWifiNetwork(nullptr, m_host.iface().c_str(), step.ssid.c_str()) == 0)
        refuse("add " + shownSsid(step.ssid));
    edits.apply(m_host.iface(), step.ssid);
}

void Block::change(const Step& step, const Edits& edits) {
    requireKnown(m_host, step.ssid);
    edits.apply(m_host.iface(), step.ssid);
}

void Block::remove(const Step& step) {
    requireKnown(m_host, step.ssid);
    if (removeWifiNetwork(nullptr, m_host.iface().c_str(), step.ssid.c_str()) == 0)
        refuse("remove " + shownSsid(step.ssid));
}

void Block::save() {
    ErrorHandler errors;
    if (saveWifiHostSettings(&errors) == 0) {
        const MessageBundle* const refusal = errors.savedError();
        throw Failure(refusal ? refusal->text() : NOT_SAVED);
    }
    m_isSaved = true;
}

unsigned int keyManagementOf(Host& host, const std::string& ssid) {
    const SettingsLock lock(host.settings());
    const WifiNetwork* const network = host.settings().getNetwork(nullptr, ssid.c_str());
    return network ? network->getKeyManagement() : 0;
}

Edits checked(const Context& context, Host& host, const Step& step) {
    Edits edits(step.assignments, context.input);
    const unsigned int edited = edits.numberOf("key_mgmt");
    edits.requireKeyFor(edited != 0 ? edited : keyManagementOf(host, step.ssid));
    requireCapabilities(host.iface(), edited, edits.numberOf("encryption"));
    return edits;
}

int millisecondsOf(std::chrono::steady_clock::duration time) {
    return static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

} // namespace

std::vector<Record> scan(Context& context) {
    Host host(context);
    std::vector<ScanResult> results = scanOnce(context, host);
    sortBy(scanOrders().front().name, results);
    std::vector<Record> records;
    records.reserve(results.size());
    for (const ScanResult& result : results)
        records.push_back(recordOf(result));
    return records;
}

std::vector<Record> networks(Context& context) {
    Host host(context);
    host.settings().refreshDatabaseNetworksStatus();
    const SettingsLock lock(host.settings());
    std::vector<Record> records;
    for (const std::string& ssid : host.networks()) {
        if (const WifiNetwork* const network = host.settings().getNetwork(nullptr, ssid.c_str())) {
            records.push_back(recordOf(*network));
            records.back().front() = {"ssid", hexOf(ssid)};
        }
    }
    return records;
}

Record link(Context& context) {
    Host host(context);
    const LinkState now = host.link();
    Record record = now.link ? std::get<Record>(valueOf(now)) : Record{{"ssid", Value()}};
    record.front() = {"ssid", now.ssid.empty() ? Value() : hexOf(now.ssid)};
    record.emplace_back("state", std::string(platwifi::stateText(now.state)));
    record.emplace_back("connected", now.link.has_value());
    return record;
}

void edit(Context& context, const std::vector<Step>& steps) {
    Host host(context);
    std::vector<Edits> edits; // all values are checked before the supplicant gets any of them
    edits.reserve(steps.size());
    for (const Step& step : steps)
        edits.push_back(checked(context, host, step));
    const Cancellation::Deferred deferred(context.interrupt);
    Block block(context, host);
    for (std::size_t i = 0; i < steps.size(); ++i)
        block.make(steps[i], edits[i]);
    context.interrupt.check();
    block.save();
}

Record joinNetwork(Context& context) {
    const Joined joined = join(context);
    Record record = link(context);
    record.emplace_back("security", joined.security.empty() ? Value() : joined.security);
    record.emplace_back("milliseconds", millisecondsOf(joined.time));
    record.emplace_back("target", hexOf(joined.ssid));
    return record;
}

Record connectNetwork(Context& context) {
    Host host(context);
    requireKnown(host, context.request.ssid);
    const auto time = connectAndWait(context, host, context.request.ssid);
    Record record = link(context);
    record.emplace_back("milliseconds", millisecondsOf(time));
    record.emplace_back("target", hexOf(context.request.ssid));
    return record;
}

// The library disconnects the interface whatever network it is on, but wants one that exists.
void disconnect(Context& context) {
    Host host(context);
    const auto all = host.networks();
    if (all.empty())
        return;
    if (disconnectFromNetwork(nullptr, host.iface().c_str(), all.front().c_str()) == 0)
        refuse("disconnect");
}

void roam(Context& context) {
    Host host(context);
    host.settings();
    if (roamNetworks(nullptr, host.iface().c_str()) == 0)
        refuse("roam");
}

} // namespace cli::api
