#include "events/EventParser.h"

#include "events/EapCodes.h"
#include "events/FrameCodes.h"
#include "events/MessageFields.h"
#include "settings/replies/PrintedSsid.h"
#include "values/Texts.h"

#include <algorithm>
#include <cctype>
#include <cstddef> // wpa_ctrl.h needs it
#include <cstring>
#include <optional>

#include <wpa_ctrl.h>

namespace cli {
namespace {

using Kind = Event::Kind;

constexpr int AUTH_SAE = 3;    // authentication algorithm
constexpr int SAE_CONFIRM = 2; // the message in which both sides prove that they know the key
constexpr int UNSPECIFIED_FAILURE = 1;
constexpr int CHALLENGE_FAILURE = 15;
constexpr int NO_MEMBER_OF_ERRNO = -1;

// The beginnings of messages that may contain a key, a passphrase or a PIN.
constexpr const char* SECRETIVE[] = {"WPS-", "DPP-", "P2P-", WPA_CTRL_RSP};

// The functions get what follows the beginning of a message. Each leaves the kind of the table, or sets a
// more exact one.

void readNothing(const std::string& /*fields*/, Event& /*event*/) {}

// "- Connection to MAC completed [id=0 id_str=]"
void readConnected(const std::string& fields, Event& event) {
    event.bssid = macAt(behind(fields, "Connection to "));
    event.network = numberOf(fields, "id=");
}

// "bssid=MAC reason=3 locally_generated=1"
void readDisconnected(const std::string& fields, Event& event) {
    event.bssid = macAt(valueOf(fields, "bssid="));
    event.code = numberOf(fields, "reason=");
    event.meaning = reasonMeaning(event.code.value_or(-1));
    event.isLocal = valueOf(fields, "locally_generated=") == "1";
}

// "MAC (SSID='NAME' freq=2412 MHz)", or "SSID 'NAME'" without a choice of access point. A name may
// contain the quote and all that follows it, so the last place counts.
void readAttempt(const std::string& fields, Event& event) {
    event.bssid = macAt(fields);
    if (event.bssid.empty()) {
        event.ssid = beforeLast(behind(fields, "SSID '"), "'");
        return;
    }
    event.ssid = beforeLast(behind(fields, "(SSID='"), "' freq=");
    const std::size_t place = fields.rfind("' freq=");
    if (place != std::string::npos)
        event.frequency = numberAt(fields.substr(place + std::strlen("' freq=")));
}

// "cur_bssid=MAC cur_freq=... sel_bssid=MAC sel_freq=... sel_level=-50 ..."
void readRoaming(const std::string& fields, Event& event) {
    event.previousBssid = macAt(valueOf(fields, "cur_bssid="));
    event.bssid = macAt(valueOf(fields, "sel_bssid="));
    event.frequency = numberOf(fields, "sel_freq=");
    event.signal = numberOf(fields, "sel_level=");
}

void readWrongKey(const std::string& /*fields*/, Event& event) {
    event.meaning = "the 4-way handshake failed: the key may be wrong";
}

// The place of the quote that ends a quoted text; quotes and backslashes in it follow a backslash.
std::size_t closingQuote(const std::string& text, std::size_t start) {
    std::size_t place = start;
    while (place < text.size() && text[place] != '"')
        place += text[place] == '\\' ? 2 : 1;
    return std::min(place, text.size());
}

// `id=0 ssid="NAME"`. Returns the fields behind the name.
std::string readNetwork(const std::string& fields, Event& event) {
    constexpr const char* MARK = "ssid=\"";
    event.network = numberOf(fields, "id=");
    const std::size_t mark = fields.find(MARK);
    if (mark == std::string::npos)
        return fields;
    const std::size_t start = mark + std::strlen(MARK);
    const std::size_t end = closingQuote(fields, start);
    event.ssid = fields.substr(start, end - start);
    return end < fields.size() ? fields.substr(end + 1) : "";
}

void readResumed(const std::string& fields, Event& event) {
    readNetwork(fields, event);
}

struct Suspension {
    const char* word;
    Kind kind;
    const char* meaning;
};

constexpr Suspension SUSPENSIONS[] = {
    {"WRONG_KEY", Kind::WRONG_KEY, "the key is wrong"},
    {"AUTH_FAILED", Kind::SUSPENDED, "the authentication failed"},
    {"CONN_FAILED", Kind::SUSPENDED, "the connection failed"},
    {"FAST_REAUTH_FAILED", Kind::SUSPENDED, "the fast reauthentication failed"},
    {"FRAME_FAILURE", Kind::SUSPENDED, "the access point did not answer"},
};

// `id=0 ssid="NAME" auth_failures=1 duration=10 reason=WRONG_KEY`
void readSuspension(const std::string& fields, Event& event) {
    const std::string rest = readNetwork(fields, event);
    event.failures = numberOf(rest, "auth_failures=");
    event.seconds = numberOf(rest, "duration=");
    const std::string word = valueOf(rest, "reason=");
    event.meaning = word;
    for (const Suspension& row : SUSPENSIONS) {
        if (word == row.word) {
            event.kind = row.kind;
            event.meaning = row.meaning;
        }
    }
}

// Whether an access point refuses the proof that this host knows the key of SAE.
bool refusesKey(const std::string& fields, int status) {
    return numberOf(fields, "auth_type=") == AUTH_SAE &&
           numberOf(fields, "auth_transaction=") == SAE_CONFIRM &&
           (status == UNSPECIFIED_FAILURE || status == CHALLENGE_FAILURE);
}

// "MAC auth_type=0 auth_transaction=2 status_code=1"
void readAuthenticationRefused(const std::string& fields, Event& event) {
    event.bssid = macAt(fields);
    event.code = numberOf(fields, "status_code=");
    event.meaning = statusMeaning(event.code.value_or(-1));
    if (refusesKey(fields, event.code.value_or(-1))) {
        event.kind = Kind::WRONG_KEY;
        event.meaning = "the access point refuses the proof of the key: the key is wrong";
    }
}

// "bssid=MAC status_code=17", with "timeout" or "timeout=WORD" where no answer came
void readAssociationRefused(const std::string& fields, Event& event) {
    event.bssid = macAt(valueOf(fields, "bssid="));
    event.code = numberOf(fields, "status_code=");
    event.meaning = statusMeaning(event.code.value_or(-1));
    if (fields.find(" timeout") != std::string::npos)
        event.kind = Kind::TIMED_OUT;
}

// "MAC timed out."
void readTimedOut(const std::string& fields, Event& event) {
    event.bssid = macAt(fields);
    if (fields.find(" timed out") == std::string::npos)
        event.kind = Kind::OTHER;
}

// "vendor=0 method=25", with " -> NAK" where this host refuses it
void readMethodProposed(const std::string& fields, Event& event) {
    event.code = numberOf(fields, "method=");
    const bool isIanas = numberOf(fields, "vendor=").value_or(0) == 0;
    event.meaning = isIanas ? eapMethodName(event.code.value_or(-1)) : "";
    if (fields.find("-> NAK") != std::string::npos)
        event.kind = Kind::EAP_METHOD_REFUSED;
}

// "EAP vendor 0 method 25 (PEAP) selected"
void readMethodChosen(const std::string& fields, Event& event) {
    event.code = numberAt(behind(fields, " method "));
    event.meaning = beforeLast(behind(fields, "("), ")");
}

// "vendor 0 method 25 (PEAP)"
void readMethodUnusable(const std::string& fields, Event& event) {
    event.code = numberAt(behind(fields, " method "));
    event.meaning = beforeLast(behind(fields, "("), ")");
}

// "depth=0 subject='/CN=server' hash=..."
void readCertificate(const std::string& fields, Event& event) {
    event.depth = numberOf(fields, "depth=");
    event.certificate = beforeLast(behind(fields, "subject='"), "'");
}

// "reason=1 depth=1 subject='/CN=authority' err='self-signed certificate'"
void readCertificateRejected(const std::string& fields, Event& event) {
    event.code = numberOf(fields, "reason=");
    event.depth = numberOf(fields, "depth=");
    event.certificate = beforeLast(behind(fields, "subject='"), "' err='");
    event.meaning = certificateMeaning(event.code.value_or(-1));
    if (event.meaning.empty())
        event.meaning = beforeLast(behind(fields, "' err='"), "'");
}

// "'FAILED' (retry not allowed, error 691)"
void readLoginRefused(const std::string& fields, Event& event) {
    event.code = numberAt(behind(fields, ", error "));
    event.meaning = loginMeaning(event.code.value_or(-1));
    if (event.meaning.empty())
        event.meaning = "the server refuses the identity or the password";
}

// "status='local TLS alert' parameter='unknown CA'"
void readStatus(const std::string& fields, Event& event) {
    constexpr const char* SEPARATOR = "' parameter='";
    event.meaning = beforeLast(behind(fields, "status='"), SEPARATOR);
    const std::string parameter = beforeLast(behind(fields, SEPARATOR), "'");
    if (!parameter.empty())
        event.meaning += ": " + parameter;
}

struct Credential {
    const char* word;
    const char* meaning;
};

constexpr Credential CREDENTIALS[] = {
    {"IDENTITY", "the identity is missing"},
    {"PASSWORD", "the password is missing"},
    {"NEW_PASSWORD", "a new password is required"},
    {"PIN", "the PIN is missing"},
    {"OTP", "a one-time password is required"},
    {"PASSPHRASE", "the password of the private key is missing"},
    {"SIM", "the answer of the SIM is missing"},
    {"PSK_PASSPHRASE", "the key is missing"},
    {"EXT_CERT_CHECK", "the certificate of the server waits for approval"},
};

// "PASSWORD-0:Password needed for SSID NAME". The text behind the colon may contain a challenge.
void readCredentialNeeded(const std::string& fields, Event& event) {
    const std::string head = fields.substr(0, fields.find(':'));
    const std::size_t hyphen = head.rfind('-');
    if (hyphen != std::string::npos)
        event.network = numberAt(head.substr(hyphen + 1));
    event.meaning = "a credential is missing";
    for (const Credential& row : CREDENTIALS) {
        if (head.substr(0, hyphen) == row.word)
            event.meaning = row.meaning;
    }
}

// "ret=-16 retry=1"
void readScanFailed(const std::string& fields, Event& event) {
    event.code = numberOf(fields, "ret=");
    if (event.code && *event.code < NO_MEMBER_OF_ERRNO)
        event.meaning = std::strerror(-*event.code);
}

// "5 MAC"
void readAccessPoint(const std::string& fields, Event& event) {
    event.bssid = macAt(behind(fields, " "));
}

// "above=0 signal=-70 noise=9999 txrate=1000"
void readSignal(const std::string& fields, Event& event) {
    event.signal = numberOf(fields, "signal=");
}

// "freq=2437 ht_enabled=1 ..."
void readChannel(const std::string& fields, Event& event) {
    event.frequency = numberOf(fields, "freq=");
}

// "init=USER type=COUNTRY alpha2=DE", or "init=CORE type=WORLD"
void readRegulatory(const std::string& fields, Event& event) {
    const std::string country = valueOf(fields, "alpha2=");
    event.meaning = country.empty() ? valueOf(fields, "type=") : country;
}

struct Message {
    const char* beginning;
    Kind kind;
    void (*read)(const std::string& fields, Event& event);
};

// clang-format off
constexpr Message MESSAGES[] = {
    {"SME: Trying to authenticate with ", Kind::AUTHENTICATING, readAttempt},
    {"Trying to associate with ", Kind::ASSOCIATING, readAttempt},
    {WPA_EVENT_CONNECTED, Kind::CONNECTED, readConnected},
    {WPA_EVENT_DO_ROAM, Kind::ROAMING, readRoaming},
    {WPA_EVENT_DISCONNECTED, Kind::DISCONNECTED, readDisconnected},
    {"WPA: 4-Way Handshake failed ", Kind::WRONG_KEY, readWrongKey},
    {WPA_EVENT_AUTH_REJECT, Kind::AUTHENTICATION_REFUSED, readAuthenticationRefused},
    {WPA_EVENT_ASSOC_REJECT, Kind::ASSOCIATION_REFUSED, readAssociationRefused},
    {"Authentication with ", Kind::TIMED_OUT, readTimedOut},
    {WPA_EVENT_TEMP_DISABLED, Kind::SUSPENDED, readSuspension},
    {WPA_EVENT_REENABLED, Kind::RESUMED, readResumed},
    {WPA_EVENT_EAP_STARTED, Kind::EAP_STARTED, readNothing},
    {WPA_EVENT_EAP_PROPOSED_METHOD, Kind::EAP_METHOD_PROPOSED, readMethodProposed},
    {WPA_EVENT_EAP_METHOD, Kind::EAP_METHOD_CHOSEN, readMethodChosen},
    {"EAP: Failed to initialize EAP method: ", Kind::EAP_METHOD_UNUSABLE, readMethodUnusable},
    {WPA_EVENT_EAP_PEER_CERT, Kind::CERTIFICATE_SHOWN, readCertificate},
    {WPA_EVENT_EAP_TLS_CERT_ERROR, Kind::CERTIFICATE_REJECTED, readCertificateRejected},
    {"EAP-MSCHAPV2: failure message: ", Kind::LOGIN_REFUSED, readLoginRefused},
    {WPA_CTRL_REQ, Kind::CREDENTIAL_NEEDED, readCredentialNeeded},
    {WPA_EVENT_EAP_STATUS, Kind::EAP_STATUS, readStatus},
    {WPA_EVENT_EAP_SUCCESS, Kind::EAP_SUCCEEDED, readNothing},
    {WPA_EVENT_EAP_FAILURE, Kind::EAP_FAILED, readNothing},
    {WPA_EVENT_NETWORK_NOT_FOUND, Kind::NETWORK_NOT_FOUND, readNothing},
    {WPA_EVENT_BEACON_LOSS, Kind::ACCESS_POINT_LOST, readNothing},
    {WPA_EVENT_BSS_ADDED, Kind::ACCESS_POINT_FOUND, readAccessPoint},
    {WPA_EVENT_BSS_REMOVED, Kind::ACCESS_POINT_GONE, readAccessPoint},
    {WPA_EVENT_SCAN_STARTED, Kind::SCAN_STARTED, readNothing},
    {WPA_EVENT_SCAN_RESULTS, Kind::SCAN_FINISHED, readNothing},
    {WPA_EVENT_SCAN_FAILED, Kind::SCAN_FAILED, readScanFailed},
    {WPA_EVENT_SIGNAL_CHANGE, Kind::SIGNAL_CHANGED, readSignal},
    {WPA_EVENT_CHANNEL_SWITCH, Kind::CHANNEL_CHANGED, readChannel},
    {WPA_EVENT_REGDOM_CHANGE, Kind::REGULATORY_CHANGED, readRegulatory},
    {WPA_EVENT_TERMINATING, Kind::TERMINATING, readNothing},
};
// clang-format on

// "<3>" stands before a message, for its level.
std::string withoutLevel(const std::string& message) {
    const bool hasLevel = message.size() >= 3 && message[0] == '<' && message[2] == '>' &&
                          std::isdigit(static_cast<unsigned char>(message[1])) != 0;
    return hasLevel ? message.substr(3) : message;
}

std::string withoutSecrets(const std::string& text) {
    for (const char* const beginning : SECRETIVE) {
        if (beginsWith(text, beginning))
            return text.substr(0, text.find_first_of(" :="));
    }
    return text;
}

// A message without fields may lack the blank that ends its name.
std::optional<Event> knownEvent(const std::string& text) {
    const std::string padded = text + ' ';
    for (const Message& message : MESSAGES) {
        if (!beginsWith(padded, message.beginning))
            continue;
        Event event;
        event.kind = message.kind;
        const std::size_t length = std::strlen(message.beginning);
        message.read(length < text.size() ? text.substr(length) : "", event);
        return event;
    }
    return std::nullopt;
}

} // namespace

Event parseEvent(const std::string& message) {
    const std::string text = withoutLevel(message);
    Event event = knownEvent(text).value_or(Event());
    if (event.kind == Kind::OTHER) {
        event = Event();
        event.text = withoutSecrets(text);
    }
    event.ssid = platwifi::bytesOfPrinted(event.ssid);
    return event;
}

} // namespace cli
