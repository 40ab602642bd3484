// The judgement of an attempt to connect by its events: the messages are those of a supplicant with real access
// points.

#include "connection/EventJudge.h"
#include "events/ConnectionHistory.h"
#include "events/EventParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using cli::Cause;
using cli::Event;
using cli::EventJudge;
using testing::HasSubstr;
using testing::Not;

namespace {

using Messages = std::vector<std::string>;

constexpr const char* AUTHENTICATING =
    "SME: Trying to authenticate with 02:00:00:00:01:00 (SSID='home' freq=2412 MHz)";
constexpr const char* ASSOCIATING =
    "Trying to associate with 02:00:00:00:01:00 (SSID='home' freq=2412 MHz)";
constexpr const char* ASSOCIATED = "Associated with 02:00:00:00:01:00";
constexpr const char* AT_ANOTHER =
    "SME: Trying to authenticate with 02:00:00:00:02:00 (SSID='home' freq=2437 MHz)";
constexpr const char* OF_ANOTHER_NETWORK =
    "SME: Trying to authenticate with 02:00:00:00:09:00 (SSID='work' freq=2412 MHz)";
constexpr const char* REFUSED =
    "CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=0 auth_transaction=2 status_code=1";
constexpr const char* REFUSED_AT_ANOTHER =
    "CTRL-EVENT-AUTH-REJECT 02:00:00:00:02:00 auth_type=0 auth_transaction=2 status_code=17";
constexpr const char* SUSPENDED =
    "CTRL-EVENT-SSID-TEMP-DISABLED id=0 ssid=\"home\" auth_failures=1 duration=10 "
    "reason=CONN_FAILED";
constexpr const char* HANDSHAKE_FAILED =
    "WPA: 4-Way Handshake failed - pre-shared key may be incorrect";
constexpr const char* EAP_STARTED = "CTRL-EVENT-EAP-STARTED EAP authentication started";
constexpr const char* PEAP_REFUSED = "CTRL-EVENT-EAP-PROPOSED-METHOD vendor=0 method=25 -> NAK";
constexpr const char* TTLS_CHOSEN = "CTRL-EVENT-EAP-METHOD EAP vendor 0 method 21 (TTLS) selected";
constexpr const char* TLS_CHOSEN = "CTRL-EVENT-EAP-METHOD EAP vendor 0 method 13 (TLS) selected";
constexpr const char* EAP_FAILED = "CTRL-EVENT-EAP-FAILURE EAP authentication failed";
constexpr const char* UNTRUSTED =
    "CTRL-EVENT-EAP-TLS-CERT-ERROR reason=1 depth=1 subject='/CN=Lab' "
    "err='self-signed certificate in certificate chain'";
constexpr const char* EXPIRED = "CTRL-EVENT-EAP-TLS-CERT-ERROR reason=4 depth=0 "
                                "subject='/CN=server' err='certificate has expired'";
constexpr const char* MSCHAP_FAILED =
    "EAP-MSCHAPV2: failure message: 'FAILED' (retry not allowed, error 691)";

EventJudge after(const Messages& messages) {
    cli::ConnectionHistory history;
    EventJudge judge("home");
    for (const std::string& message : messages) {
        Event event = cli::parseEvent("<3>" + message);
        history.complete(event);
        judge.onEvent(event);
    }
    return judge;
}

struct Failing {
    Messages messages;
    Cause cause;
    const char* found; // part of it; "" where the words of the cause are meant
    const char* step;  // the same
};

const Failing FAILING[] = {
    // CAUSE-1
    {{AUTHENTICATING, ASSOCIATING, ASSOCIATED, HANDSHAKE_FAILED}, Cause::WRONG_KEY, "", ""},
    {{AUTHENTICATING, ASSOCIATING,
      "CTRL-EVENT-SSID-TEMP-DISABLED id=0 ssid=\"home\" auth_failures=1 duration=10 "
      "reason=WRONG_KEY"},
     Cause::WRONG_KEY,
     "",
     ""},
    {{AUTHENTICATING, "CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=3 auth_transaction=2 "
                      "status_code=1"},
     Cause::WRONG_KEY,
     "",
     ""},
    {{AUTHENTICATING, "CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=3 auth_transaction=2 "
                      "status_code=15"},
     Cause::WRONG_KEY,
     "",
     ""},
    {{AUTHENTICATING, "CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=1 auth_transaction=4 "
                      "status_code=15"},
     Cause::WRONG_KEY,
     "",
     ""}, // WEP
    // CAUSE-2
    {{AUTHENTICATING, REFUSED, SUSPENDED},
     Cause::REFUSED,
     "refuses this device, status 1: the cause is not one that has a code",
     ""},
    {{AUTHENTICATING, REFUSED, AUTHENTICATING, REFUSED}, Cause::REFUSED, "status 1", ""},
    {{AUTHENTICATING, REFUSED, AT_ANOTHER, REFUSED_AT_ANOTHER, AT_ANOTHER, REFUSED_AT_ANOTHER},
     Cause::REFUSED,
     "status 17: the access point has too many stations",
     ""},
    {{ASSOCIATING, "CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=17", ASSOCIATING,
      "CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=17"},
     Cause::REFUSED,
     "status 17",
     ""},
    {{ASSOCIATING, ASSOCIATED, "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=5",
      ASSOCIATING, ASSOCIATED, "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=5"},
     Cause::REFUSED,
     "ends the connection, reason 5: the access point has too many stations",
     ""},
    // CAUSE-3
    {{ASSOCIATING, EAP_STARTED, TTLS_CHOSEN, EAP_FAILED}, Cause::LOGIN_REFUSED, "", ""},
    {{ASSOCIATING, EAP_STARTED, PEAP_REFUSED, TTLS_CHOSEN, EAP_FAILED},
     Cause::LOGIN_REFUSED,
     "",
     ""},
    {{ASSOCIATING, EAP_STARTED, MSCHAP_FAILED, EAP_FAILED},
     Cause::LOGIN_REFUSED,
     "the server refuses the login: the identity or the password is wrong",
     ""},
    {{ASSOCIATING, EAP_STARTED, TLS_CHOSEN, EAP_FAILED},
     Cause::LOGIN_REFUSED,
     "refuses the identity or the certificate of this device",
     "clientCertificate=PATH"},
    {{ASSOCIATING, EAP_STARTED, TTLS_CHOSEN,
      "CTRL-EVENT-EAP-STATUS status='remote TLS alert' parameter='unknown CA'", EAP_FAILED},
     Cause::LOGIN_REFUSED,
     "the certificate of this device: unknown CA",
     "clientCertificate=PATH"},
    {{ASSOCIATING, EAP_STARTED, "CTRL-REQ-PASSWORD-0:Password needed for SSID home"},
     Cause::LOGIN_REFUSED,
     "the password is missing",
     "platwifi set --help"},
    // CAUSE-4
    {{ASSOCIATING, EAP_STARTED, UNTRUSTED, EAP_FAILED},
     Cause::SERVER_NOT_TRUSTED,
     "not trusted: no configured authority has issued it (/CN=Lab)",
     ""},
    {{ASSOCIATING, EAP_STARTED, EXPIRED, EAP_FAILED},
     Cause::SERVER_NOT_TRUSTED,
     "has expired: check the clock",
     "make sure that this is the right network"},
    // CAUSE-5
    {{ASSOCIATING, EAP_STARTED, "EAP: Failed to initialize EAP method: vendor 0 method 25 (PEAP)",
      EAP_FAILED},
     Cause::CERTIFICATE_FILE,
     "",
     ""},
    // CAUSE-7
    {{ASSOCIATING, EAP_STARTED, PEAP_REFUSED, EAP_FAILED},
     Cause::OTHER_SECURITY,
     "the server proposes PEAP",
     "eap=WORD"},
    // CAUSE-8
    {{ASSOCIATING, "CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=31"},
     Cause::NEEDS_PMF_OR_WPA3,
     "without management frame protection",
     "pmf=optional"},
    // CAUSE-11
    {{"CTRL-EVENT-TERMINATING "}, Cause::SUPPLICANT_GONE, "", ""},
};

TEST(TheEvents, ShowTheCauseOfAFailure) {
    for (const Failing& row : FAILING) {
        SCOPED_TRACE(testing::PrintToString(row.messages));
        const EventJudge judge = after(row.messages);
        ASSERT_TRUE(judge.failure().has_value());
        EXPECT_EQ(judge.failure()->cause, row.cause);
        if (row.found[0] == '\0')
            EXPECT_EQ(judge.failure()->found, "");
        else
            EXPECT_THAT(judge.failure()->found, HasSubstr(row.found));
        if (row.step[0] == '\0')
            EXPECT_EQ(judge.failure()->step, "");
        else
            EXPECT_THAT(judge.failure()->step, HasSubstr(row.step));
    }
}

TEST(TheEvents, NeverBlameThePasswordForACertificate) { // CAUSE-4
    for (const char* const fault : {UNTRUSTED, EXPIRED}) {
        const auto failure = after({ASSOCIATING, EAP_STARTED, fault, EAP_FAILED}).failure();
        const cli::CauseEntry& entry = cli::entryOf(failure->cause);
        for (const std::string& text :
             {failure->found, failure->step, std::string(entry.found), std::string(entry.step)})
            EXPECT_THAT(text, Not(HasSubstr("assword")));
    }
}

const Messages UNDECIDED[] = {
    {},
    {AUTHENTICATING, ASSOCIATING, ASSOCIATED},
    // Of several access points one refuses.
    {AUTHENTICATING, REFUSED},
    {AUTHENTICATING, REFUSED, AT_ANOTHER, REFUSED_AT_ANOTHER},
    {ASSOCIATING, "CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=53"},
    {ASSOCIATING, "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=5"},
    // This host leaves.
    {ASSOCIATING, "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=3 locally_generated=1",
     ASSOCIATING, "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=3 locally_generated=1"},
    // The access point has forgotten the connection before.
    {AUTHENTICATING, "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=6", ASSOCIATING,
     "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=6", SUSPENDED},
    {ASSOCIATING, "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=7", ASSOCIATING,
     "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=7"},
    // The supplicant tries again.
    {AUTHENTICATING, "Authentication with 02:00:00:00:01:00 timed out.", SUSPENDED},
    {SUSPENDED},
};

TEST(TheEvents, LeaveOpenWhatMaySucceed) {
    for (const Messages& messages : UNDECIDED) {
        SCOPED_TRACE(testing::PrintToString(messages));
        EXPECT_FALSE(after(messages).failure().has_value());
    }
}

const Messages OF_OTHERS[] = {
    {OF_ANOTHER_NETWORK, HANDSHAKE_FAILED},
    {HANDSHAKE_FAILED},
    {EAP_FAILED},
    {"CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:09:00 reason=5",
     "CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:09:00 reason=5"},
    {AUTHENTICATING, OF_ANOTHER_NETWORK, HANDSHAKE_FAILED},
    {"CTRL-EVENT-SSID-TEMP-DISABLED id=1 ssid=\"work\" auth_failures=1 duration=10 "
     "reason=WRONG_KEY"},
};

TEST(TheEvents, OfOtherNetworksDoNotCount) { // CAUSE-13
    for (const Messages& messages : OF_OTHERS) {
        SCOPED_TRACE(testing::PrintToString(messages));
        EXPECT_FALSE(after(messages).failure().has_value());
    }
}

TEST(TheEvents, AreRecognisedByTheBytesOfTheSsid) {
    EventJudge judge("caf\xc3\xa9");
    judge.onEvent(cli::parseEvent("<3>Trying to associate with 02:00:00:00:01:00 "
                                  "(SSID='caf\\xc3\\xa9' freq=2412 MHz)"));
    EXPECT_TRUE(judge.wasTried());
}

TEST(TheEvents, ShowWhetherTheNetworkWasTried) {
    EXPECT_FALSE(after({}).wasTried());
    EXPECT_FALSE(after({OF_ANOTHER_NETWORK}).wasTried());
    EXPECT_TRUE(after({AUTHENTICATING}).wasTried());
    EXPECT_TRUE(after({AUTHENTICATING, OF_ANOTHER_NETWORK}).wasTried());
}

constexpr const char* SCAN_STARTED = "CTRL-EVENT-SCAN-STARTED ";
constexpr const char* SCAN_FINISHED = "CTRL-EVENT-SCAN-RESULTS ";

TEST(TheEvents, CountTheScansThatBeganMeanwhile) {
    EXPECT_EQ(after({SCAN_FINISHED}).finishedScans(), 0);
    EXPECT_EQ(after({SCAN_FINISHED, SCAN_STARTED}).finishedScans(), 0);
    EXPECT_EQ(after({SCAN_FINISHED, SCAN_STARTED, SCAN_FINISHED}).finishedScans(), 1);
    EXPECT_EQ(after({SCAN_STARTED, SCAN_FINISHED, SCAN_FINISHED}).finishedScans(), 1);
}

TEST(TheEvents, ShowWhatKeptTheConnectionFromStanding) { // CAUSE-9
    EXPECT_EQ(after({AUTHENTICATING}).hindrance(), "");
    EXPECT_THAT(
        after({AUTHENTICATING, "Authentication with 02:00:00:00:01:00 timed out."}).hindrance(),
        HasSubstr("the access point does not answer"));
    EXPECT_THAT(after({AUTHENTICATING, SUSPENDED}).hindrance(),
                HasSubstr("the access point does not answer"));
    EXPECT_THAT(after({SUSPENDED}).hindrance(),
                HasSubstr("does not try the network for some time"));
    EXPECT_THAT(after({AUTHENTICATING, REFUSED}).hindrance(), HasSubstr("status 1"));
}

TEST(TheEvents, ShowThatTheSupplicantIsGone) { // CAUSE-11
    EventJudge judge("home");
    Event lost;
    lost.kind = Event::Kind::LOST;
    judge.onEvent(lost);
    EXPECT_EQ(judge.failure()->cause, Cause::SUPPLICANT_GONE);
}

} // namespace
