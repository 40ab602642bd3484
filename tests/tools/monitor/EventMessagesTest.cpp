// What the messages of the supplicant mean, for programs and for a terminal.

#include "commands/EventReport.h"
#include "display/Text.h"
#include "events/EventParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

using cli::Event;
using cli::parseEvent;
using Kind = cli::Event::Kind;
using testing::HasSubstr;
using testing::Not;

namespace {

struct ToText {
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(int value) const { return std::to_string(value); }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
};

/// The members of an event but its time, one after another: "connected network=0".
std::string membersOf(const Event& event) {
    std::string text;
    for (const auto& [name, value] : cli::recordOf(event, 0)) {
        const std::string shown = std::visit(ToText(), value);
        if (name == "event")
            text += shown;
        else if (name != "time")
            text += " " + name + "=" + shown;
    }
    return text;
}

/// The line for an event in a pipe, without the time and the column of blanks.
std::string lineOf(const Event& event) {
    std::string line = cli::reportOf(event, 0, cli::Console());
    line.erase(0, std::string("00:00:00  ").size());
    for (std::size_t gap = line.find("   "); gap != std::string::npos; gap = line.find("   "))
        line.erase(gap, 1);
    return line;
}

struct Case {
    const char* message;
    const char* members;
    const char* line;
};

// clang-format off
const Case CASES[] = {
    {"<3>SME: Trying to authenticate with 02:00:00:00:01:00 (SSID='lab-psk' freq=2412 MHz)",
     "authenticating ssid=lab-psk bssid=02:00:00:00:01:00 frequency=2412",
     "authenticating  lab-psk, 02:00:00:00:01:00, 2412 MHz\n"},
    {"<3>Trying to associate with 02:00:00:00:01:00 (SSID='lab-psk' freq=5180 MHz)",
     "associating ssid=lab-psk bssid=02:00:00:00:01:00 frequency=5180",
     "associating  lab-psk, 02:00:00:00:01:00, 5180 MHz\n"},
    {"<3>Trying to associate with SSID 'home's'", "associating ssid=home's", "associating  home's\n"},
    {"<3>CTRL-EVENT-CONNECTED - Connection to 02:00:00:00:01:00 completed [id=7 id_str=]",
     "connected network=7 bssid=02:00:00:00:01:00", "connected  network 7, 02:00:00:00:01:00\n"},
    {"<3>CTRL-EVENT-DO-ROAM cur_bssid=02:00:00:00:01:00 cur_freq=2412 cur_level=-80 cur_est=1000 "
     "sel_bssid=02:00:00:00:02:00 sel_freq=2437 sel_level=-50 sel_est=6000",
     "roaming bssid=02:00:00:00:02:00 previousBssid=02:00:00:00:01:00 frequency=2437 signal=-50",
     "roaming  02:00:00:00:02:00, from 02:00:00:00:01:00, 2437 MHz, -50 dBm\n"},
    {"<3>CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=3 locally_generated=1",
     "disconnected bssid=02:00:00:00:01:00 code=3 meaning=the sender leaves the network local=true",
     "disconnected  02:00:00:00:01:00, by this host, reason 3: the sender leaves the network\n"},
    {"<3>CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=15",
     "disconnected bssid=02:00:00:00:01:00 code=15 "
     "meaning=the 4-way handshake took too long: the key may be wrong local=false",
     "disconnected  02:00:00:00:01:00, by the access point, reason 15: "
     "the 4-way handshake took too long: the key may be wrong\n"},
    {"<3>CTRL-EVENT-DISCONNECTED bssid=00:00:00:00:00:00 reason=999",
     "disconnected code=999 local=false", "disconnected  by the access point, reason 999\n"},
    {"<3>WPA: 4-Way Handshake failed - pre-shared key may be incorrect",
     "wrongKey meaning=the 4-way handshake failed: the key may be wrong",
     "wrong key  the 4-way handshake failed: the key may be wrong\n"},
    {"<3>CTRL-EVENT-SSID-TEMP-DISABLED id=0 ssid=\"lab-psk\" auth_failures=1 duration=10 reason=WRONG_KEY",
     "wrongKey ssid=lab-psk network=0 meaning=the key is wrong failures=1 seconds=10",
     "wrong key  lab-psk, the key is wrong, 1 failure, not tried for 10 s\n"},
    {"<3>CTRL-EVENT-SSID-TEMP-DISABLED id=3 ssid=\"lab-eap\" auth_failures=2 duration=32 reason=AUTH_FAILED",
     "suspended ssid=lab-eap network=3 meaning=the authentication failed failures=2 seconds=32",
     "network suspended  lab-eap, the authentication failed, 2 failures, not tried for 32 s\n"},
    {"<3>CTRL-EVENT-SSID-TEMP-DISABLED id=3 ssid=\"lab-eap\" auth_failures=2 duration=32 reason=CONN_FAILED",
     "suspended ssid=lab-eap network=3 meaning=the connection failed failures=2 seconds=32",
     "network suspended  lab-eap, the connection failed, 2 failures, not tried for 32 s\n"},
    {"<3>CTRL-EVENT-SSID-TEMP-DISABLED id=3 ssid=\"a\" auth_failures=2 duration=32 reason=NEW_WORD",
     "suspended ssid=a network=3 meaning=NEW_WORD failures=2 seconds=32",
     "network suspended  a, NEW_WORD, 2 failures, not tried for 32 s\n"},
    {"<3>CTRL-EVENT-SSID-REENABLED id=3 ssid=\"lab-eap\"", "resumed ssid=lab-eap network=3",
     "network resumed  lab-eap\n"},
    {"<3>CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=0 auth_transaction=2 status_code=17",
     "authenticationRefused bssid=02:00:00:00:01:00 code=17 meaning=the access point has too many stations",
     "authentication refused  02:00:00:00:01:00, status 17: the access point has too many stations\n"},
    {"<3>CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=3 auth_transaction=1 status_code=77",
     "authenticationRefused bssid=02:00:00:00:01:00 code=77 "
     "meaning=the group of the key exchange (SAE or OWE) is not supported",
     "authentication refused  02:00:00:00:01:00, status 77: "
     "the group of the key exchange (SAE or OWE) is not supported\n"},
    {"<3>CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=3 auth_transaction=2 status_code=1",
     "wrongKey bssid=02:00:00:00:01:00 code=1 "
     "meaning=the access point refuses the proof of the key: the key is wrong",
     "wrong key  02:00:00:00:01:00, status 1: the access point refuses the proof of the key: the key is wrong\n"},
    {"<3>CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=3 auth_transaction=2 status_code=15",
     "wrongKey bssid=02:00:00:00:01:00 code=15 "
     "meaning=the access point refuses the proof of the key: the key is wrong",
     "wrong key  02:00:00:00:01:00, status 15: the access point refuses the proof of the key: the key is wrong\n"},
    {"<3>CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=31",
     "associationRefused bssid=02:00:00:00:01:00 code=31 meaning=management frame protection does not fit",
     "association refused  02:00:00:00:01:00, status 31: management frame protection does not fit\n"},
    {"<3>CTRL-EVENT-ASSOC-REJECT status_code=9999", "associationRefused code=9999",
     "association refused  status 9999\n"},
    {"<3>CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=16 timeout=assoc",
     "timedOut bssid=02:00:00:00:01:00 code=16 meaning=the next authentication frame did not come in time",
     "no answer  02:00:00:00:01:00, status 16: the next authentication frame did not come in time\n"},
    {"<3>Authentication with 02:00:00:00:01:00 timed out.", "timedOut bssid=02:00:00:00:01:00",
     "no answer  02:00:00:00:01:00\n"},
    {"<3>Authentication with a friend", "other text=Authentication with a friend",
     "other  Authentication with a friend\n"},
    {"<3>CTRL-EVENT-EAP-STARTED EAP authentication started", "eapStarted", "EAP started\n"},
    {"<3>CTRL-EVENT-EAP-PROPOSED-METHOD vendor=0 method=25", "eapMethodProposed code=25 meaning=PEAP",
     "EAP method proposed  method 25: PEAP\n"},
    {"<3>CTRL-EVENT-EAP-PROPOSED-METHOD vendor=0 method=25 -> NAK",
     "eapMethodRefused code=25 meaning=PEAP", "EAP method refused  method 25: PEAP\n"},
    {"<3>CTRL-EVENT-EAP-PROPOSED-METHOD vendor=14122 method=25", "eapMethodProposed code=25",
     "EAP method proposed  method 25\n"},
    {"<3>CTRL-EVENT-EAP-METHOD EAP vendor 0 method 21 (TTLS) selected",
     "eapMethodChosen code=21 meaning=TTLS", "EAP method chosen  method 21: TTLS\n"},
    {"<3>EAP: Failed to initialize EAP method: vendor 0 method 25 (PEAP)",
     "eapMethodUnusable code=25 meaning=PEAP", "EAP method unusable  method 25: PEAP\n"},
    {"<3>CTRL-EVENT-EAP-PEER-CERT depth=1 subject='/O=Lab/CN=Lab's own' hash=76403c81",
     "certificateShown depth=1 certificate=/O=Lab/CN=Lab's own", "certificate  /O=Lab/CN=Lab's own\n"},
    {"<3>CTRL-EVENT-EAP-TLS-CERT-ERROR reason=1 depth=1 subject='/CN=Lab' err='self-signed certificate'",
     "certificateRejected code=1 meaning=the certificate of the server is not trusted: "
     "no configured authority has issued it depth=1 certificate=/CN=Lab",
     "certificate rejected  /CN=Lab, error 1: the certificate of the server is not trusted: "
     "no configured authority has issued it\n"},
    {"<3>CTRL-EVENT-EAP-TLS-CERT-ERROR reason=99 depth=0 subject='/CN=a' err='it's new'",
     "certificateRejected code=99 meaning=it's new depth=0 certificate=/CN=a",
     "certificate rejected  /CN=a, error 99: it's new\n"},
    {"<4>EAP-MSCHAPV2: failure message: 'FAILED' (retry not allowed, error 691)",
     "loginRefused code=691 meaning=the identity or the password is wrong",
     "login refused  error 691: the identity or the password is wrong\n"},
    {"<4>EAP-MSCHAPV2: failure message: '' (retry allowed, error 5)",
     "loginRefused code=5 meaning=the server refuses the identity or the password",
     "login refused  error 5: the server refuses the identity or the password\n"},
    {"<3>CTRL-REQ-PASSWORD-4:Password needed for SSID lab-eap",
     "credentialNeeded network=4 meaning=the password is missing",
     "credential needed  network 4, the password is missing\n"},
    {"<3>CTRL-REQ-OTP-0:Challenge 1234567890 needed for SSID lab-eap",
     "credentialNeeded network=0 meaning=a one-time password is required",
     "credential needed  network 0, a one-time password is required\n"},
    {"<3>CTRL-EVENT-EAP-STATUS status='local TLS alert' parameter='unknown CA'",
     "eapStatus meaning=local TLS alert: unknown CA", "EAP status  local TLS alert: unknown CA\n"},
    {"<3>CTRL-EVENT-EAP-STATUS status='started' parameter=''", "eapStatus meaning=started",
     "EAP status  started\n"},
    {"<3>CTRL-EVENT-EAP-SUCCESS EAP authentication completed successfully", "eapSucceeded",
     "EAP succeeded\n"},
    {"<3>CTRL-EVENT-EAP-FAILURE EAP authentication failed", "eapFailed", "EAP failed\n"},
    {"<3>CTRL-EVENT-NETWORK-NOT-FOUND ", "networkNotFound", "network not found\n"},
    {"<3>CTRL-EVENT-BEACON-LOSS ", "accessPointLost", "access point lost\n"},
    {"<3>CTRL-EVENT-BSS-ADDED 12 02:00:00:00:01:00", "accessPointFound bssid=02:00:00:00:01:00",
     "access point found  02:00:00:00:01:00\n"},
    {"<3>CTRL-EVENT-BSS-REMOVED 12 02:00:00:00:01:00", "accessPointGone bssid=02:00:00:00:01:00",
     "access point gone  02:00:00:00:01:00\n"},
    {"<3>CTRL-EVENT-SCAN-STARTED ", "scanStarted", "scan started\n"},
    {"<3>CTRL-EVENT-SCAN-RESULTS ", "scanFinished", "scan finished\n"},
    {"<3>CTRL-EVENT-SCAN-RESULTS", "scanFinished", "scan finished\n"},
    {"<3>CTRL-EVENT-SCAN-FAILED ret=-16 retry=1", "scanFailed code=-16 meaning=Device or resource busy",
     "scan failed  error -16: Device or resource busy\n"},
    {"<3>CTRL-EVENT-SCAN-FAILED ret=-1", "scanFailed code=-1", "scan failed  error -1\n"},
    {"<3>CTRL-EVENT-SIGNAL-CHANGE above=0 signal=-71 noise=9999 txrate=6000", "signalChanged signal=-71",
     "signal changed  -71 dBm\n"},
    {"<3>CTRL-EVENT-CHANNEL-SWITCH freq=2437 ht_enabled=1", "channelChanged frequency=2437",
     "channel changed  2437 MHz\n"},
    {"<3>CTRL-EVENT-REGDOM-CHANGE init=USER type=COUNTRY alpha2=DE", "regulatoryChanged meaning=DE",
     "regulatory domain  DE\n"},
    {"<3>CTRL-EVENT-REGDOM-CHANGE init=CORE type=WORLD", "regulatoryChanged meaning=WORLD",
     "regulatory domain  WORLD\n"},
    {"<3>CTRL-EVENT-TERMINATING ", "supplicantEnds", "supplicant ends\n"},
    {"<3>Associated with 02:00:00:00:01:00", "other text=Associated with 02:00:00:00:01:00",
     "other  Associated with 02:00:00:00:01:00\n"},
    {"no level", "other text=no level", "other  no level\n"},
    {"<3>CTRL-EVENT-SCAN-RESULTSX", "other text=CTRL-EVENT-SCAN-RESULTSX",
     "other  CTRL-EVENT-SCAN-RESULTSX\n"},
    {"", "other", "other\n"},
    {"<3>", "other", "other\n"},
    {"<3>CTRL-EVENT-CONNECTED ", "connected", "connected\n"},
    {"<3>CTRL-EVENT-CONNECTED - Connection to 02:00:00:00:01 completed [id=x id_str=]", "connected",
     "connected\n"},
};
// clang-format on

TEST(EventMessage, IsReadIntoItsMembers) {
    for (const Case& one : CASES)
        EXPECT_EQ(membersOf(parseEvent(one.message)), one.members) << one.message;
}

TEST(EventMessage, IsOneLineInAPipe) {
    for (const Case& one : CASES)
        EXPECT_EQ(lineOf(parseEvent(one.message)), one.line) << one.message;
}

// ROAMED and LOST come from earlier messages and from silence, not from a message.
TEST(EventMessage, ExistsForEachKindOfEvent) {
    std::set<Kind> kinds{Kind::ROAMED, Kind::LOST};
    for (const Case& one : CASES)
        kinds.insert(parseEvent(one.message).kind);
    EXPECT_EQ(kinds.size(), static_cast<std::size_t>(Kind::OTHER) + 1);
}

TEST(EventMessage, HasANameOfItsOwnForEachKind) {
    std::set<std::string> names;
    for (int kind = 0; kind <= static_cast<int>(Kind::OTHER); ++kind)
        names.insert(cli::nameOf(static_cast<Kind>(kind)));
    EXPECT_EQ(names.size(), static_cast<std::size_t>(Kind::OTHER) + 1);
}

TEST(EventMessage, HasItsNameInTheManualPage) {
    std::ostringstream page;
    page << std::ifstream(MANUAL_PAGE).rdbuf();
    for (int kind = 0; kind <= static_cast<int>(Kind::OTHER); ++kind) {
        const std::string name = cli::nameOf(static_cast<Kind>(kind));
        EXPECT_THAT(page.str(), testing::AnyOf(HasSubstr("\n.Em " + name + "\n"),
                                               HasSubstr("\n.Em " + name + " ")));
    }
}

struct NamedMessage {
    const char* message;
    const char* ssid; // as bytes
};

// An access point may choose a name that looks like the rest of a message.
TEST(EventMessage, CannotBeForgedByAnSsid) {
    const NamedMessage cases[] = {
        {"SME: Trying to authenticate with 02:00:00:00:01:00 (SSID='x' freq=1 MHz)' freq=2412 MHz)",
         "x' freq=1 MHz)"},
        {"CTRL-EVENT-SSID-TEMP-DISABLED id=0 ssid=\"a\\\" reason=WRONG_KEY \\\\\" auth_failures=1 "
         "duration=10 reason=CONN_FAILED",
         "a\" reason=WRONG_KEY \\"},
        {"CTRL-EVENT-SSID-REENABLED id=0 ssid=\"caf\\xc3\\xa9\"", "café"},
    };
    for (const NamedMessage& one : cases) {
        const auto record = cli::recordOf(parseEvent(one.message), 0);
        EXPECT_THAT(record,
                    testing::Contains(std::pair<std::string, cli::Value>("ssid", one.ssid)));
        EXPECT_NE(parseEvent(one.message).kind, Kind::WRONG_KEY);
    }
}

TEST(EventMessage, ShowsNoSecrets) {
    const char* const messages[] = {
        "<3>WPS-CRED-RECEIVED 100e0050102600010110450005secret99",
        "<3>WPS-ER-AP-SETTINGS uuid ssid=home network_key=secret99",
        "<3>DPP-CONFOBJ-PASS secret99",
        "<3>DPP-CONFOBJ-PSK secret99",
        "<3>P2P-GROUP-STARTED wlan0 GO ssid=\"DIRECT\" freq=2412 passphrase=\"secret99\"",
        "<3>P2P-PROV-DISC-SHOW-PIN 02:00:00:00:01:00 secret99",
        "<3>CTRL-RSP-PASSWORD-0:secret99",
        "<3>CTRL-REQ-SIM-0:GSM-AUTH:secret99 needed for SSID home",
    };
    for (const char* const message : messages) {
        const Event event = parseEvent(message);
        EXPECT_THAT(membersOf(event), Not(HasSubstr("secret99")));
        EXPECT_THAT(lineOf(event), Not(HasSubstr("secret99")));
    }
    EXPECT_EQ(parseEvent(messages[0]).text, "WPS-CRED-RECEIVED");
}

TEST(EventMessage, ShowsWhatATerminalCannotShowInEscapes) {
    EXPECT_EQ(lineOf(parseEvent("<3>a\033[2J\nb")), "other  a\\x1b[2J\\x0ab\n");
    EXPECT_EQ(lineOf(parseEvent("<3>Trying to associate with SSID '\\x1b[2J'")),
              "associating  \\x1b[2J\n");
    EXPECT_EQ(lineOf(parseEvent("<3>CTRL-EVENT-EAP-PEER-CERT depth=0 subject='/CN=\033]0;x\007'")),
              "certificate  /CN=\\x1b]0;x\\x07\n");
}

TEST(EventReport, HasTheTimeOfDay) {
    setenv("TZ", "UTC0", 1);
    tzset();
    const Event event = parseEvent("<3>CTRL-EVENT-SCAN-RESULTS ");
    EXPECT_EQ(cli::reportOf(event, 50'706, cli::Console()), "14:05:06  scan finished\n");
    EXPECT_EQ(cli::recordOf(event, 50'706).front().second, cli::Value("1970-01-01T14:05:06Z"));
    unsetenv("TZ");
    tzset();
}

TEST(EventReport, ContinuesBelowTheDetailsOnATerminal) {
    cli::Console console;
    console.width = 60;
    const std::string report = cli::reportOf(
        parseEvent("<3>CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=15"), 0, console);
    EXPECT_EQ(report.substr(10), "disconnected            02:00:00:00:01:00, by the\n"
                                 "                                  access point, reason 15:\n"
                                 "                                  the 4-way handshake took\n"
                                 "                                  too long: the key may be\n"
                                 "                                  wrong\n");
    console.width = 24;
    const std::string narrow = cli::reportOf(parseEvent("<3>Associated with a"), 0, console);
    EXPECT_EQ(narrow.substr(10), "other\n  Associated with a\n");
}

TEST(EventReport, IsNoWiderThanATinyTerminal) {
    cli::Console console;
    for (const unsigned int width : {2U, 3U, 4U, 9U, 12U}) {
        console.width = width;
        std::istringstream lines(cli::reportOf(parseEvent("<3>Associated with 😀"), 0, console));
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(cli::cellsOf(line), width) << line;
    }
}

TEST(EventReport, HasColoursOnATerminal) {
    cli::Console console;
    console.hasColours = true;
    const auto report = [&](const char* message) {
        return cli::reportOf(parseEvent(message), 0, console).substr(10);
    };
    EXPECT_EQ(report("<3>CTRL-EVENT-CONNECTED "), "\033[32mconnected\033[0m\n");
    EXPECT_EQ(report("<3>CTRL-EVENT-BEACON-LOSS "), "\033[31maccess point lost\033[0m\n");
}

} // namespace
