// What earlier events add to later ones.

#include "events/ConnectionHistory.h"
#include "events/EventParser.h"

#include <gtest/gtest.h>

using cli::Event;
using Kind = cli::Event::Kind;

namespace {

const std::string FIRST = "02:00:00:00:01:00";
const std::string SECOND = "02:00:00:00:02:00";

class History : public testing::Test {
protected:
    Event after(const std::string& message) {
        Event event = cli::parseEvent(message);
        m_history.complete(event);
        return event;
    }

    Event attempt(const std::string& bssid, const std::string& ssid) {
        return after("SME: Trying to authenticate with " + bssid + " (SSID='" + ssid +
                     "' freq=2412 MHz)");
    }

    Event connect(const std::string& bssid, int network = 0) {
        return after("CTRL-EVENT-CONNECTED - Connection to " + bssid +
                     " completed [id=" + std::to_string(network) + " id_str=]");
    }

    Event disconnect(const std::string& bssid) {
        return after("CTRL-EVENT-DISCONNECTED bssid=" + bssid + " reason=3");
    }

private:
    cli::ConnectionHistory m_history;
};

TEST_F(History, NamesTheNetworkOfAConnection) {
    attempt(FIRST, "home");
    EXPECT_EQ(connect(FIRST, 4).ssid, "home");
    const Event end = disconnect(FIRST);
    EXPECT_EQ(end.ssid, "home");
    EXPECT_EQ(end.network, 4);
}

TEST_F(History, NamesNoNetworkThatIsNotKnown) {
    EXPECT_EQ(connect(FIRST).ssid, "");
    EXPECT_EQ(disconnect(FIRST).ssid, "");
    attempt(SECOND, "work");
    EXPECT_EQ(connect(FIRST).ssid, "");
}

TEST_F(History, NamesTheNetworkOfAnAttemptThatFails) {
    attempt(FIRST, "home");
    EXPECT_EQ(disconnect(FIRST).ssid, "home");
    EXPECT_EQ(disconnect(SECOND).ssid, "");
}

TEST_F(History, NamesTheNetworkThatIsRefused) {
    const char* const refusals[] = {
        "WPA: 4-Way Handshake failed - pre-shared key may be incorrect",
        "CTRL-EVENT-AUTH-REJECT 02:00:00:00:01:00 auth_type=0 auth_transaction=2 status_code=17",
        "CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=31",
        "CTRL-EVENT-ASSOC-REJECT status_code=31",
        "Authentication with 02:00:00:00:01:00 timed out.",
        "CTRL-EVENT-EAP-TLS-CERT-ERROR reason=1 depth=1 subject='/CN=Lab' err='untrusted'",
        "EAP-MSCHAPV2: failure message: 'FAILED' (retry not allowed, error 691)",
        "CTRL-EVENT-EAP-FAILURE EAP authentication failed",
    };
    attempt(FIRST, "home");
    for (const char* const refusal : refusals)
        EXPECT_EQ(after(refusal).ssid, "home") << refusal;
    EXPECT_EQ(after("Authentication with " + SECOND + " timed out.").ssid, "");
    EXPECT_EQ(after("CTRL-EVENT-SSID-TEMP-DISABLED id=1 ssid=\"work\" reason=WRONG_KEY").ssid,
              "work");
}

TEST_F(History, FindsThatTheNetworkIsTheSameAtAnotherAccessPoint) {
    attempt(FIRST, "home");
    EXPECT_EQ(connect(FIRST).kind, Kind::CONNECTED);
    attempt(SECOND, "home");
    const Event roamed = connect(SECOND);
    EXPECT_EQ(roamed.kind, Kind::ROAMED);
    EXPECT_EQ(roamed.ssid, "home");
    EXPECT_EQ(roamed.bssid, SECOND);
    EXPECT_EQ(roamed.previousBssid, FIRST);
}

TEST_F(History, FindsThatAlsoWithoutAnAttempt) {
    attempt(FIRST, "home");
    connect(FIRST);
    const Event roamed = connect(SECOND);
    EXPECT_EQ(roamed.kind, Kind::ROAMED);
    EXPECT_EQ(roamed.ssid, "home");
}

TEST_F(History, FindsThatForAConnectionFromBeforeTheFirstEvent) {
    after("CTRL-EVENT-DO-ROAM cur_bssid=" + FIRST + " cur_freq=2412 sel_bssid=" + SECOND);
    const Event roamed = connect(SECOND);
    EXPECT_EQ(roamed.kind, Kind::ROAMED);
    EXPECT_EQ(roamed.previousBssid, FIRST);
}

TEST_F(History, CountsAConnectionAfterAnEndAsANewOne) {
    connect(FIRST);
    disconnect(FIRST);
    EXPECT_EQ(connect(SECOND).kind, Kind::CONNECTED);
}

TEST_F(History, CountsAnotherNetworkAsANewConnection) {
    connect(FIRST, 0);
    EXPECT_EQ(connect(SECOND, 1).kind, Kind::CONNECTED);
}

TEST_F(History, CountsTheSameAccessPointAsANewConnection) {
    connect(FIRST);
    EXPECT_EQ(connect(FIRST).kind, Kind::CONNECTED);
}

} // namespace
