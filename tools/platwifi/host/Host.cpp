#include "host/Host.h"

#include "Failure.h"
#include "checks/Checks.h"
#include "display/LoadProgress.h"
#include "display/Text.h"
#include "host/Lines.h"
#include "host/Listing.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "process/OtherProcesses.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>

namespace cli {
namespace {

constexpr unsigned char MOST_NETWORKS = 32; // that the library loads
constexpr std::size_t LONGEST_NAME = 13;
constexpr const char* NO_INTERFACE =
    "the supplicant lists no interface; start it with one, such as -i wlan0";

void failFor(const std::optional<Finding>& finding) {
    if (finding)
        throw Failure(finding->found + "; " + finding->toDo);
}

// Why nothing answers, in the words of the first check that fails.
[[noreturn]] void tellObstacle(const std::string& iface, const std::string& otherwise) {
    failFor(obstacle(iface));
    throw Failure(otherwise);
}

void requireName(const std::string& iface) {
    if (iface.size() > LONGEST_NAME)
        throw WrongUse("the name of an interface has " + std::to_string(LONGEST_NAME) +
                       " characters at most; ip link lists them");
}

} // namespace

Host::~Host() {
    if (m_settings)
        leaveSharedBlock();
}

WifiUtil& Host::util() {
    if (WifiUtil* const util = WifiUtil::getInstance())
        return *util;
    throw Failure("there is no memory left; end some programs, then try again");
}

const std::vector<std::string>& Host::adapters() {
    if (!m_adapters.empty())
        return m_adapters;
    failFor(missingClient()); // in this program's words: the library has others for it
    m_adapters = listedAdapters();
    m_context.interrupt.check();
    if (m_adapters.empty())
        tellObstacle(m_context.request.iface, NO_INTERFACE);
    return m_adapters;
}

const std::string& Host::iface() {
    if (!m_iface.empty())
        return m_iface;
    const std::string& wanted = m_context.request.iface;
    requireName(wanted);
    const auto& served = adapters();
    if (!wanted.empty() && std::find(served.begin(), served.end(), wanted) == served.end())
        throw Failure("the supplicant does not serve " + printable(wanted) +
                      "; platwifi adapters lists what it does");
    m_iface = wanted.empty() ? served.front() : wanted;
    return m_iface;
}

WifiHostSettings& Host::settings() {
    if (!m_settings)
        load();
    return *m_settings;
}

void Host::load() {
    if (iface() != adapters().front())
        throw Failure("the networks are those of " + adapters().front() +
                      ", the first interface that the supplicant lists; leave out -i");
    bool ok = false;
    const std::size_t listed = listedNetworks(m_iface, ok).size();
    if (!ok)
        tellObstacle(m_iface, "the supplicant does not answer for " + m_iface +
                                  "; platwifi doctor tells more");
    {
        const LoadProgress progress(m_context.err, std::min<std::size_t>(listed, MOST_NETWORKS));
        m_settings = WifiHostSettings::getInstance(nullptr);
    }
    m_context.interrupt.check();
    if (!m_settings || (listed > 0 && networks().empty()))
        tellObstacle(m_iface, "the networks could not be loaded; platwifi doctor tells more");
}

std::vector<std::string> Host::networks() {
    WifiHostSettings& all = settings();
    bool ok = false;
    return linesOf(MOST_NETWORKS, ok, [&](char** out, unsigned char max, unsigned char* count) {
        const bool listed = all.getNetworkDatabaseSsids(m_iface.c_str(), out, max, count);
        if (!listed)
            all.unlockNetworks(); // kept, since a network has no SSID; the refresh thread waits for it
        return listed;
    });
}

std::optional<std::string> Host::known() {
    for (const std::string& ssid : networks()) {
        if (isSameSsid(ssid, m_context.request.ssid))
            return ssid;
    }
    return std::nullopt;
}

std::string Host::network() {
    if (const auto ssid = known())
        return *ssid;
    throw Failure("there is no network " + shownSsid(m_context.request.ssid) +
                  "; platwifi networks lists what there is");
}

std::string Host::currentNetwork() {
    char* ssid = nullptr;
    getCurrentNetwork(nullptr, iface().c_str(), &ssid);
    return taken(ssid);
}

} // namespace cli
