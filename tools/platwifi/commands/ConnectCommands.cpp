// Which network the supplicant is on.

#include "Failure.h"
#include "commands/Commands.h"
#include "display/Json.h"
#include "display/StateLine.h"
#include "host/ConnectionAttempt.h"
#include "host/Host.h"
#include "host/Listing.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/Vocabulary.h"

#include <chrono>
#include <iomanip>
#include <iostream>
#include <memory>
#include <sstream>

namespace cli {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds PAUSE{50};
std::string seconds(Clock::duration time) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << std::chrono::duration<double>(time).count();
    return text.str();
}

[[noreturn]] void refuse(const std::string& what) {
    throw Failure("the supplicant did not accept to " + what + "; platwifi doctor tells more");
}

/// One try to connect, watched until it is complete, refused, or has taken too long.
class Watch {
public:
    Watch(Context& context, Host& host, const std::string& ssid)
        : m_context(context), m_host(host), m_ssid(ssid), m_start(Clock::now()) {}

    void run(StateLine* line) {
        look(line);
        while (!m_attempt.isComplete() && !m_attempt.isRefused() && elapsed() < patience()) {
            m_context.interrupt.pause(PAUSE);
            look(line);
        }
    }

    const ConnectionAttempt& attempt() const { return m_attempt; }
    Clock::duration elapsed() const { return Clock::now() - m_start; }

private:
    Clock::duration patience() const { return std::chrono::seconds(m_context.request.patience); }

    void look(StateLine* line) {
        const auto state = static_cast<WpaState>(getDaemonStatus(nullptr, m_host.iface().c_str()));
        const bool isOnNetwork = isSameSsid(m_host.currentNetwork(), m_ssid);
        m_attempt.saw(state, isOnNetwork);
        if (state == WPA_STATE_DISCONNECTED || state == WPA_STATE_SCANNING)
            lookForRefusal();
        const bool isOnTheWay = isOnNetwork || state < WPA_STATE_ASSOCIATED;
        if (line && isOnTheWay && state != WPA_STATE_UNKNOWN) // such as AUTHENTICATING
            line->tell(platwifi::stateText(state));
    }

    // The supplicant marks a network that has refused it, and leaves it alone for some seconds.
    void lookForRefusal() {
        bool ok = false;
        for (const ListedNetwork& network : listedNetworks(m_host.iface(), ok)) {
            if (isSameSsid(network.ssid, m_ssid))
                m_attempt.sawAvoidance(network.isAvoided);
        }
    }

    Context& m_context;
    Host& m_host;
    const std::string m_ssid;
    const Clock::time_point m_start;
    ConnectionAttempt m_attempt;
};

void watch(Context& context, Watch& attempt, const std::string& ssid) {
    std::unique_ptr<StateLine> line;
    if (!context.request.json)
        line = std::make_unique<StateLine>(context.out, "Connecting to " + shownSsid(ssid) + ":");
    try {
        attempt.run(line.get());
    } catch (Interrupted& end) {
        end.message = "interrupted; the supplicant goes on trying: platwifi disconnect ends that";
        throw;
    }
}

[[noreturn]] void giveUp(const Watch& watch, const std::string& ssid) {
    throw Failure(shownSsid(ssid) + " is not connected after " + seconds(watch.elapsed()) +
                  " s, the last state is " + platwifi::stateText(watch.attempt().last()) + ": " +
                  watch.attempt().likelyCause());
}

} // namespace

void connectNetwork(Context& context) {
    Host host(context);
    const std::string ssid = host.network();
    if (connectToNetwork(nullptr, host.iface().c_str(), ssid.c_str()) == 0)
        refuse("connect to " + shownSsid(ssid));
    Watch attempt(context, host, ssid);
    watch(context, attempt, ssid);
    if (!attempt.attempt().isComplete())
        giveUp(attempt, ssid);
    const char* const state = platwifi::stateText(attempt.attempt().last());
    if (context.request.json)
        return printJson(Record{{"ssid", plainSsid(ssid)}, {"state", state}});
    std::cout << "Connected to " << shownSsid(ssid) << " after " << seconds(attempt.elapsed())
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
