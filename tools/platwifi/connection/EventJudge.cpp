#include "connection/EventJudge.h"

#include "display/Text.h"
#include "host/Ssid.h"
#include "values/Texts.h"

#include <utility>

namespace cli {
namespace {

using Kind = Event::Kind;

constexpr int CHALLENGE_FAILURE =
    15; // status code: the proof that this host knows the key is wrong
constexpr int PROTECTION_REQUIRED = 31; // status code: management frame protection is required
// Reason codes: frames of a connection that the access point has forgotten, such as the one before this attempt.
constexpr int NOT_AUTHENTICATED = 6;
constexpr int NOT_ASSOCIATED = 7;
constexpr const char* SERVER_ALERT = "remote TLS alert: ";

// What the supplicant checks in the certificate of a server, by its numbers.
constexpr int NO_FAULT_IS_NAMED = 0;
constexpr int UNKNOWN_AUTHORITY = 1;

// Which events count: all of a kind, or those of an attempt for the wanted network.
constexpr bool ALWAYS = true;
constexpr bool OURS = false;

std::string withCode(const std::string& found, const char* name, const Event& event) {
    std::string text = found;
    if (event.code)
        text += ", " + (name + (" " + std::to_string(*event.code)));
    if (!event.meaning.empty())
        text += ": " + event.meaning;
    return text;
}

} // namespace

struct EventJudge::Reaction {
    Kind kind;
    bool isAlways; ///< also outside of an attempt for the wanted network
    void (EventJudge::*react)(const Event& event);
};

// clang-format off
constexpr EventJudge::Reaction EventJudge::REACTIONS[] = {
    {Kind::AUTHENTICATING, ALWAYS, &EventJudge::onAttempt},
    {Kind::ASSOCIATING, ALWAYS, &EventJudge::onAttempt},
    {Kind::WRONG_KEY, OURS, &EventJudge::onWrongKey},
    {Kind::AUTHENTICATION_REFUSED, OURS, &EventJudge::onAuthenticationRefused},
    {Kind::ASSOCIATION_REFUSED, OURS, &EventJudge::onAssociationRefused},
    {Kind::DISCONNECTED, OURS, &EventJudge::onDisconnected},
    {Kind::TIMED_OUT, OURS, &EventJudge::onNoAnswer},
    {Kind::SUSPENDED, OURS, &EventJudge::onSuspended},
    {Kind::EAP_METHOD_REFUSED, OURS, &EventJudge::onMethodRefused},
    {Kind::EAP_METHOD_CHOSEN, OURS, &EventJudge::onMethodChosen},
    {Kind::EAP_METHOD_UNUSABLE, OURS, &EventJudge::onMethodUnusable},
    {Kind::CERTIFICATE_REJECTED, OURS, &EventJudge::onCertificateRejected},
    {Kind::LOGIN_REFUSED, OURS, &EventJudge::onLoginRefused},
    {Kind::CREDENTIAL_NEEDED, OURS, &EventJudge::onCredentialNeeded},
    {Kind::EAP_STATUS, OURS, &EventJudge::onEapStatus},
    {Kind::EAP_FAILED, OURS, &EventJudge::onEapFailed},
    {Kind::SCAN_STARTED, ALWAYS, &EventJudge::onScanStarted},
    {Kind::SCAN_FINISHED, ALWAYS, &EventJudge::onScanFinished},
    {Kind::TERMINATING, ALWAYS, &EventJudge::onGone},
    {Kind::LOST, ALWAYS, &EventJudge::onGone},
};
// clang-format on

EventJudge::EventJudge(std::string ssid) : m_ssid(std::move(ssid)) {}

void EventJudge::onEvent(const Event& event) {
    for (const Reaction& row : REACTIONS) {
        if (row.kind == event.kind && (row.isAlways || concerns(event)))
            (this->*row.react)(event);
    }
}

// An event without an SSID belongs to the attempt that is under way.
bool EventJudge::concerns(const Event& event) const {
    return event.ssid.empty() ? m_isOurs : isSameSsid(event.ssid, m_ssid);
}

// The first cause counts: later events are its consequences.
void EventJudge::fail(Cause cause, const std::string& found, const std::string& step) {
    if (!m_failure)
        m_failure = Diagnosis{cause, found, step};
}

void EventJudge::onAttempt(const Event& event) {
    m_isOurs = isSameSsid(event.ssid, m_ssid);
    m_wasTried = m_wasTried || m_isOurs;
    m_accessPoint = event.bssid;
    m_refusedMethod.clear();
    m_method.clear();
    m_serverAlert.clear();
}

void EventJudge::onWrongKey(const Event& /*event*/) {
    fail(Cause::WRONG_KEY);
}

void EventJudge::onAuthenticationRefused(const Event& event) {
    if (event.code == CHALLENGE_FAILURE)
        fail(Cause::WRONG_KEY);
    else
        refuse(event, withCode("the access point refuses this device", "status", event));
}

void EventJudge::onAssociationRefused(const Event& event) {
    if (event.code == PROTECTION_REQUIRED) {
        fail(Cause::NEEDS_PMF_OR_WPA3,
             "the access point refuses a connection without management frame protection",
             "allow it with platwifi set SSID pmf=optional");
    }
    refuse(event, withCode("the access point refuses this device", "status", event));
}

// The supplicant begins anew where the access point has forgotten the connection.
void EventJudge::onDisconnected(const Event& event) {
    const int reason = event.code.value_or(0);
    const bool isForgotten = reason == NOT_AUTHENTICATED || reason == NOT_ASSOCIATED;
    if (m_isOurs && event.isLocal == false && !isForgotten)
        refuse(event, withCode("the access point ends the connection", "reason", event));
}

// The supplicant tries the other access points of the network before it comes back to this one.
void EventJudge::refuse(const Event& event, const std::string& found) {
    const std::string& bssid = event.bssid.empty() ? m_accessPoint : event.bssid;
    const bool isSecond = !m_refusal.empty() && m_refusedAtBssid == bssid;
    m_refusal = found;
    m_refusedAtBssid = bssid;
    if (isSecond)
        fail(Cause::REFUSED, m_refusal);
}

void EventJudge::onNoAnswer(const Event& /*event*/) {
    m_hadNoAnswer = true;
}

// An attempt that ends without a refusal had no answer: the supplicant reports nothing else then.
void EventJudge::onSuspended(const Event& /*event*/) {
    m_isSuspended = true;
    m_hadNoAnswer = m_hadNoAnswer || m_isOurs;
    if (!m_refusal.empty())
        fail(Cause::REFUSED, m_refusal);
}

void EventJudge::onMethodRefused(const Event& event) {
    m_refusedMethod = event.meaning.empty() ? "another EAP method" : event.meaning;
}

void EventJudge::onMethodChosen(const Event& event) {
    m_refusedMethod.clear();
    m_method = event.meaning;
}

void EventJudge::onMethodUnusable(const Event& /*event*/) {
    fail(Cause::CERTIFICATE_FILE);
}

// A fault that is not due to the authority is not cured by another one.
void EventJudge::onCertificateRejected(const Event& event) {
    const int fault = event.code.value_or(NO_FAULT_IS_NAMED);
    const bool isAuthority = fault == NO_FAULT_IS_NAMED || fault == UNKNOWN_AUTHORITY;
    const std::string subject = printable(event.certificate);
    fail(Cause::SERVER_NOT_TRUSTED,
         printable(event.meaning) + (subject.empty() ? "" : " (" + subject + ")"),
         isAuthority ? "" : "make sure that this is the right network, then ask its operator");
}

void EventJudge::onLoginRefused(const Event& event) {
    fail(Cause::LOGIN_REFUSED, "the server refuses the login: " + printable(event.meaning));
}

void EventJudge::onCredentialNeeded(const Event& event) {
    fail(Cause::LOGIN_REFUSED, event.meaning,
         "set it with platwifi set; platwifi set --help lists the properties");
}

void EventJudge::onEapStatus(const Event& event) {
    if (beginsWith(event.meaning, SERVER_ALERT))
        m_serverAlert = event.meaning.substr(std::string(SERVER_ALERT).size());
}

// With the method TLS this device logs in by its certificate.
void EventJudge::onEapFailed(const Event& /*event*/) {
    if (!m_refusedMethod.empty()) {
        fail(Cause::OTHER_SECURITY,
             "the server proposes " + m_refusedMethod + ", for which the network is not configured",
             "set another method with platwifi set SSID eap=WORD");
    }
    if (m_method == "TLS" || !m_serverAlert.empty()) {
        fail(Cause::LOGIN_REFUSED,
             "the server refuses the identity or the certificate of this device" +
                 (m_serverAlert.empty() ? "" : ": " + printable(m_serverAlert)),
             "correct them with platwifi set SSID eapIdentity=NAME clientCertificate=PATH "
             "privateKeyFile=PATH");
    }
    fail(Cause::LOGIN_REFUSED);
}

void EventJudge::onScanStarted(const Event& /*event*/) {
    m_isScanning = true;
}

// A scan that began before may not have looked for the name of a hidden network.
void EventJudge::onScanFinished(const Event& /*event*/) {
    m_finishedScans += m_isScanning ? 1 : 0;
    m_isScanning = false;
}

void EventJudge::onGone(const Event& /*event*/) {
    fail(Cause::SUPPLICANT_GONE);
}

std::string EventJudge::hindrance() const {
    if (!m_refusal.empty())
        return m_refusal;
    if (m_hadNoAnswer)
        return "the access point does not answer: is it near enough?";
    if (m_isSuspended)
        return "the supplicant does not try the network for some time, because it failed before";
    return "";
}

} // namespace cli
