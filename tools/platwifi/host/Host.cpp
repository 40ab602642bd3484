#include "host/Host.h"

#include "checks/Checks.h"
#include "client/ControlSocket.h"
#include "client/Listing.h"
#include "client/ProfileInUse.h"
#include "display/LoadProgress.h"
#include "display/Text.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/NetworkFunctions.h"
#include "process/SharedBlock.h"
#include "settings/WifiHostSettings.h"
#include "settings/replies/ListRecord.h"
#include "values/Lines.h"

#include <algorithm>
#include <filesystem>
#include <net/if.h>
#include <set>

namespace cli {
namespace {

namespace rule = platwifi::rule;

constexpr unsigned char MAX_NETWORKS = 255; // that the library loads
constexpr std::size_t MAX_NAME_LENGTH = IFNAMSIZ - 1;
constexpr const char* NO_INTERFACE =
    "the supplicant lists no interface; start it with one, such as -i wlan0";

void throwFor(const std::optional<Finding>& finding) {
    if (finding)
        throw Failure(finding->found + "; " + finding->toDo);
}

// The message is that of the first check that fails, or `fallback` if none does.
[[noreturn]] void throwObstacle(const std::string& iface, const std::string& fallback) {
    throwFor(obstacle(iface));
    throw Failure(fallback);
}

// The SSIDs differ: of several networks with the same one, a load keeps the first.
std::size_t countLoaded(const platwifi::Lines& lines) {
    std::set<std::string> names;
    const std::size_t most = std::min<std::size_t>(lines.size(), inUse(rule::MOST_NETWORKS));
    for (std::size_t i = 0; i < most; ++i) {
        if (const auto network = platwifi::listRecord(lines[i], inUse(rule::EMPTY_COLUMNS_COUNT)))
            names.insert(network->printed.empty() ? platwifi::NO_SSID : network->printed);
    }
    return names.size();
}

// The interface whose control socket stands alone in its folder, if a process listens there: the one that the
// supplicant would list, which need not be asked then. "" for none.
std::string soleInterface() {
    std::string sole;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(CONTROL_FOLDER, error)) {
        if (!sole.empty())
            return "";
        sole = entry.path().filename();
    }
    const bool isUsable =
        !sole.empty() && !isForWifiDirect(sole) && connectTo(controlSocketOf(sole)) == 0;
    return isUsable ? sole : "";
}

void requireName(const std::string& iface) {
    if (iface.size() > MAX_NAME_LENGTH)
        throw WrongUse("the name of an interface has " + std::to_string(MAX_NAME_LENGTH) +
                       " characters at most; ip link lists them");
}

} // namespace

Host::~Host() {
    if (m_settings && m_context.isWholeProcess)
        leaveSharedBlock();
}

const std::vector<std::string>& Host::adapters() {
    if (!m_adapters.empty())
        return m_adapters;
    throwFor(missingClient()); // before the library reports it in its own words
    m_adapters = listedAdapters();
    m_context.interrupt.check();
    if (m_adapters.empty())
        throwObstacle(m_context.request.iface, NO_INTERFACE);
    return m_adapters;
}

const std::string& Host::firstAdapter() {
    if (!m_first.empty())
        return m_first;
    throwFor(missingClient()); // before the library reports it in its own words
    m_first = soleInterface();
    if (m_first.empty())
        m_first = adapters().front();
    return m_first;
}

const std::string& Host::iface() {
    if (!m_iface.empty())
        return m_iface;
    const std::string& wanted = m_context.request.iface;
    requireName(wanted);
    if (!wanted.empty() && wanted != firstAdapter())
        requireServed(wanted);
    m_iface = wanted.empty() ? firstAdapter() : wanted;
    return m_iface;
}

void Host::requireServed(const std::string& wanted) {
    const auto& served = adapters();
    if (std::find(served.begin(), served.end(), wanted) == served.end())
        throw Failure("the supplicant does not serve " + printable(wanted) +
                      "; platwifi adapters lists what it does");
}

WifiHostSettings& Host::settings() {
    if (!m_settings)
        load();
    return *m_settings;
}

void Host::throwSilent() {
    throwObstacle(m_iface,
                  "the supplicant does not answer for " + m_iface + "; platwifi doctor tells more");
}

void Host::throwNotLoaded() {
    throwObstacle(m_iface, "the networks could not be loaded; platwifi doctor tells more");
}

std::size_t Host::networkCount() {
    if (iface() != firstAdapter()) {
        throw Failure("the networks are those of " + firstAdapter() +
                      ", the first interface that the supplicant lists; " +
                      (m_context.isWholeProcess ? "leave out -i" : "open that one"));
    }
    bool ok = false;
    const platwifi::Lines lines = listLines(m_iface, ok);
    m_context.interrupt.check();
    if (!ok)
        throwSilent();
    const std::size_t count = countLoaded(lines);
    if (count == 0 && !lines.empty())
        throwNotLoaded();
    return count;
}

LinkState Host::link() {
    LinkState now = LinkState::now(iface());
    m_context.interrupt.check();
    if (!now.isReported)
        throwSilent();
    return now;
}

void Host::load() {
    const std::size_t count = networkCount();
    {
        const LoadProgress progress(m_context.err, count);
        m_settings = WifiHostSettings::getInstance(nullptr);
    }
    m_context.interrupt.check();
    if (m_settings && !m_context.isWholeProcess && networks().size() != count)
        m_settings
            ->refreshAllSettings(); // another program has changed them, or an earlier load has failed
    if (!m_settings || (count > 0 && networks().empty()))
        throwNotLoaded();
}

std::vector<std::string> Host::networks() {
    WifiHostSettings& all = settings();
    bool ok = false;
    return linesOf(MAX_NETWORKS, ok, [&](char** out, unsigned char max, unsigned char* count) {
        const bool listed = all.getNetworkDatabaseSsids(m_iface.c_str(), out, max, count);
        if (!listed)
            all.unlockNetworks(); // a network without an SSID: the library has kept its lock
        return listed;
    });
}

std::optional<std::string> Host::findNetwork() {
    const auto all = networks();
    for (const std::string& reading : readingsOf(m_context.request.ssid)) {
        if (std::find(all.begin(), all.end(), reading) != all.end())
            return reading;
    }
    return std::nullopt;
}

std::string Host::network() {
    if (const auto ssid = findNetwork())
        return *ssid;
    throw Failure("there is no network " + shownSsid(m_context.request.ssid) +
                  "; platwifi networks lists what there is");
}

std::string Host::currentNetwork() {
    char* ssid = nullptr;
    getCurrentNetwork(nullptr, iface().c_str(), &ssid);
    return takeOwnership(ssid);
}

} // namespace cli
