#include "connection/Connecting.h"

#include "client/Listing.h"
#include "connection/EventJudge.h"
#include "connection/NetworkSecurity.h"
#include "connection/Obstacles.h"
#include "connection/RangeJudge.h"
#include "connection/RangeSurvey.h"
#include "display/StateLine.h"
#include "events/EventSource.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/Vocabulary.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <algorithm>
#include <iomanip>
#include <memory>
#include <sstream>
#include <utility>

namespace cli {
namespace {

using Clock = EventSource::Clock;
using Kind = Event::Kind;

// Events may be missed: those before the source is attached, and none come for a connection that stands
// already or for an adapter that is blocked meanwhile.
constexpr std::chrono::seconds POLL_PERIOD{1};

// One scan can miss the beacon of an access point.
constexpr int DECISIVE_SCANS = 2;

std::string foundBy(const Diagnosis& diagnosis) {
    return diagnosis.found.empty() ? entryOf(diagnosis.cause).found : diagnosis.found;
}

std::string messageOf(const Diagnosis& diagnosis, const std::string& ssid) {
    return shownSsid(ssid) + " is not connected: " + foundBy(diagnosis) + "; " +
           (diagnosis.step.empty() ? entryOf(diagnosis.cause).step : diagnosis.step);
}

// The word that the line of states gets for an event; null for none.
const char* wordFor(Kind kind) {
    switch (kind) {
    case Kind::SCAN_STARTED:
        return platwifi::stateText(WPA_STATE_SCANNING);
    case Kind::AUTHENTICATING:
        return "AUTHENTICATING"; // a state that the library does not know
    case Kind::ASSOCIATING:
        return platwifi::stateText(WPA_STATE_ASSOCIATING);
    default:
        return nullptr;
    }
}

/// Gives the attempt up at its end, unless the connection stands: the library then enables the other networks
/// again, as it does when a connection stands. The supplicant chooses among all of them.
class Selection {
public:
    Selection(Context& context, Host& host, const std::string& ssid)
        : m_cancellation(context.interrupt), m_iface(host.iface()), m_ssid(ssid) {}
    ~Selection() {
        if (m_isConnected)
            return;
        const Cancellation::Deferred deferred(m_cancellation);
        if (disconnectFromNetwork(nullptr, m_iface.c_str(), m_ssid.c_str()) != 0)
            driver().forceReassociation(m_iface.c_str());
    }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

    void onConnected() { m_isConnected = true; }

private:
    Cancellation& m_cancellation;
    const std::string m_iface;
    const std::string m_ssid;
    bool m_isConnected = false;
};

/// An attempt to connect.
class Attempt {
public:
    Attempt(Context& context, Host& host, const std::string& ssid)
        : m_context(context), m_host(host), m_ssid(ssid), m_judge(ssid) {}

    /// @return how long it took. @throws ConnectionFailure, Failure, Interrupted
    Clock::duration run();

private:
    void examine();
    void request();
    void wait(EventSource& events);
    void look();
    void handle(const Event& event);
    void judgeRangeIfUntried(int scans);
    void failIfBlocked() const;
    void show(const char* word);
    [[noreturn]] void fail(const Diagnosis& diagnosis) const;
    [[noreturn]] void failAtTimeout();
    Clock::duration elapsed() const { return Clock::now() - m_start; }

    Context& m_context;
    Host& m_host;
    const std::string m_ssid;
    NetworkSecurity m_security;
    EventJudge m_judge;
    std::unique_ptr<StateLine> m_line;
    WpaState m_state = WPA_STATE_UNKNOWN; ///< the last that the supplicant reported
    bool m_isComplete = false;
    Clock::time_point m_start;
    Clock::time_point m_nextLook;
};

Clock::duration Attempt::run() {
    examine();
    EventSource events(m_host.iface(), m_context.interrupt);
    Selection selection(m_context, m_host, m_ssid);
    request();
    wait(events);
    selection.onConnected();
    return elapsed();
}

// What makes a connection impossible is reported before anything is changed.
void Attempt::examine() {
    std::optional<Diagnosis> obstacle;
    {
        const platwifi::SettingsLock lock(m_host.settings());
        const WifiNetwork* const network = m_host.settings().getNetwork(nullptr, m_ssid.c_str());
        if (!network)
            throw Failure("there is no network " + shownSsid(m_ssid) +
                          "; platwifi networks lists what there is");
        m_security = NetworkSecurity::of(*network);
        obstacle = missingFile(*network);
    }
    if (obstacle)
        fail(*obstacle);
    failIfBlocked();
}

void Attempt::request() {
    m_start = m_nextLook = Clock::now();
    if (connectToNetwork(nullptr, m_host.iface().c_str(), m_ssid.c_str()) == 0)
        throw Failure("the supplicant did not accept to connect to " + shownSsid(m_ssid) +
                      "; platwifi doctor tells more");
}

void Attempt::wait(EventSource& events) {
    if (!m_context.request.json)
        m_line =
            std::make_unique<StateLine>(m_context.out, "Connecting to " + shownSsid(m_ssid) + ":");
    const auto deadline = m_start + std::chrono::seconds(m_context.request.timeout);
    for (look(); !m_isComplete; look()) {
        if (m_judge.failure())
            fail(*m_judge.failure());
        if (Clock::now() >= deadline)
            failAtTimeout();
        if (const auto event = events.next(std::min(deadline, m_nextLook)))
            handle(*event);
    }
}

// States of another network are not shown. WPA_STATE_UNKNOWN is a state that the library does not
// know, and is not shown either.
void Attempt::look() {
    if (Clock::now() < m_nextLook)
        return;
    m_nextLook = Clock::now() + POLL_PERIOD;
    failIfBlocked();
    m_state = static_cast<WpaState>(getDaemonStatus(nullptr, m_host.iface().c_str()));
    const bool isOurs = isSameSsid(m_host.currentNetwork(), m_ssid);
    m_isComplete = isOurs && m_state == WPA_STATE_COMPLETED;
    if ((isOurs || m_state < WPA_STATE_ASSOCIATED) && m_state != WPA_STATE_UNKNOWN)
        show(platwifi::stateText(m_state));
}

void Attempt::handle(const Event& event) {
    m_judge.onEvent(event);
    show(wordFor(event.kind));
    if (event.kind == Kind::CONNECTED || event.kind == Kind::ROAMED)
        m_nextLook = Clock::now();
    if (event.kind == Kind::SCAN_FINISHED)
        judgeRangeIfUntried(DECISIVE_SCANS);
}

// The supplicant selects from the same results: if an access point fits, it is about to try that. A blocked
// adapter and a supplicant that has ended have no results, which says nothing about the range.
void Attempt::judgeRangeIfUntried(int scans) {
    if (m_judge.wasTried() || m_judge.finishedScans() < scans)
        return;
    failIfBlocked();
    const auto accessPoints = accessPointsOf(m_host.iface(), m_ssid);
    const auto diagnosis = accessPoints ? judgeRange(m_security, *accessPoints) : std::nullopt;
    if (diagnosis)
        fail(*diagnosis);
}

void Attempt::failIfBlocked() const {
    if (const auto block = adapterBlock(m_host.iface()))
        fail(*block);
}

void Attempt::show(const char* word) {
    if (m_line && word)
        m_line->add(word);
}

void Attempt::fail(const Diagnosis& diagnosis) const {
    throw ConnectionFailure(diagnosis, m_ssid, m_state);
}

void Attempt::failAtTimeout() {
    judgeRangeIfUntried(1);
    const std::string hindrance = m_judge.hindrance();
    std::string found = "that takes longer than " + std::to_string(m_context.request.timeout) +
                        " s, the last state is " + platwifi::stateText(m_state);
    if (!hindrance.empty())
        found += ": " + hindrance;
    fail({Cause::TIMED_OUT, found, ""});
}

} // namespace

ConnectionFailure::ConnectionFailure(const Diagnosis& diagnosis, std::string network,
                                     WpaState lastState)
    : Failure(messageOf(diagnosis, network), entryOf(diagnosis.cause).exitStatus),
      cause(diagnosis.cause), found(foundBy(diagnosis)), ssid(std::move(network)),
      state(lastState) {}

Clock::duration connectAndWait(Context& context, Host& host, const std::string& ssid) {
    try {
        return Attempt(context, host, ssid).run();
    } catch (Interrupted& end) {
        end.message = "interrupted; the supplicant goes on trying: platwifi disconnect ends that";
        throw;
    }
}

std::string secondsText(std::chrono::steady_clock::duration time) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << std::chrono::duration<double>(time).count();
    return text.str();
}

Record connectedRecord(const std::string& ssid) {
    return {{"ssid", plainSsid(ssid)},
            {"state", std::string(platwifi::stateText(WPA_STATE_COMPLETED))},
            {"cause", std::monostate()}};
}

Record failureRecord(const ConnectionFailure& failure) {
    return {{"ssid", plainSsid(failure.ssid)},
            {"state", std::string(platwifi::stateText(failure.state))},
            {"cause", std::string(entryOf(failure.cause).word)},
            {"message", std::string(failure.what())}};
}

} // namespace cli
