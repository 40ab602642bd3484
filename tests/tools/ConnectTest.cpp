// The command connect: the states that it shows, and the cause that it reports.

#include "CommandFixture.h"

using test::Ending;
using test::platwifi;
using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

namespace {

std::string stateOn(const std::string& state) {
    return "ssid=home\nid=0\nwpa_state=" + state + "\n";
}

class Connect : public test::CommandFixture {
protected:
    // The answers to the client's command "status", from the load on; the last one repeats.
    void serveStates(const std::vector<std::string>& answers) {
        auto rule = on({"status"});
        for (std::size_t i = 0; i < answers.size(); ++i) {
            if (i > 0)
                rule.then();
            rule.prints(answers[i]);
        }
        serve({"home", "work"});
    }

    // Each poll runs the command twice: for the state, and for the network.
    static std::vector<std::string> twice(const std::vector<std::string>& answers) {
        std::vector<std::string> all = {"wpa_state=INACTIVE\n"}; // for the load
        for (const std::string& answer : answers)
            all.insert(all.end(), {answer, answer});
        return all;
    }

    // The states are shown before.
    static void expectFailure(const Ending& ending, const std::string& says) {
        EXPECT_EQ(ending.status, 1);
        expectOneLine(ending, says);
    }
};

const std::string SCANNING = "wpa_state=SCANNING\n";
const std::string DISCONNECTED = "wpa_state=DISCONNECTED\n";

TEST_F(Connect, ShowsTheStatesUntilItIsComplete) {
    serveStates(
        twice({SCANNING, SCANNING, stateOn("ASSOCIATING"), stateOn("ASSOCIATED"),
               stateOn("4WAY_HANDSHAKE"), stateOn("GROUP_HANDSHAKE"), stateOn("COMPLETED")}));
    const std::string shown = outputOf(platwifi({"connect", "home"}));
    EXPECT_THAT(shown, HasSubstr("Connecting to home: SCANNING ASSOCIATING ASSOCIATED "
                                 "4WAY_HANDSHAKE GROUP_HANDSHAKE COMPLETED\n"));
    EXPECT_THAT(shown, ContainsRegex("\nConnected to home after [0-9]+\\.[0-9] s\\.\n"));
    EXPECT_EQ(callsOf({"select", "0"}), 1u);
}

TEST_F(Connect, IgnoresTheConnectionToAnotherNetwork) {
    serveStates(twice(
        {"ssid=work\nid=1\nwpa_state=COMPLETED\n", DISCONNECTED, SCANNING, stateOn("COMPLETED")}));
    EXPECT_THAT(outputOf(platwifi({"connect", "home"})),
                HasSubstr("home: DISCONNECTED SCANNING COMPLETED\n"));
}

TEST_F(Connect, ReportsAWrongKey) {
    serveStates(twice({SCANNING, stateOn("ASSOCIATED"), stateOn("4WAY_HANDSHAKE"), DISCONNECTED}));
    expectFailure(platwifi({"connect", "home"}),
                  "the last state is DISCONNECTED: the key is probably wrong; correct it with "
                  "platwifi set SSID psk=-");
}

TEST_F(Connect, ReportsARefusedIdentity) {
    serveStates(twice({SCANNING, stateOn("ASSOCIATED"), SCANNING}));
    expectFailure(platwifi({"connect", "home"}), "refuses the identity, password or certificate");
}

// The refusal happens between two polls, so that none of its states is seen.
TEST_F(Connect, ReportsARefusalByTheFlagOfTheNetwork) {
    const std::string head = "network id / ssid / bssid / flags\n";
    const std::string notAvoided =
        head + "0\thome\tany\t[CURRENT]\n1\twork\tany\t[TEMP-DISABLED]\n";
    auto rule = on({"list_networks"});
    for (int i = 0; i < 3; ++i)
        rule.prints(notAvoided).then();
    rule.prints(head + "0\thome\tany\t[TEMP-DISABLED]\n1\twork\tany\t\n");
    serveStates(twice({SCANNING}));
    expectFailure(platwifi({"connect", "home"}), "refuses the key, or the identity and password");
}

TEST_F(Connect, FailsAfterTheTimeoutWithTheLastState) {
    serveStates(twice({SCANNING}));
    const Ending ending = platwifi({"connect", "-t", "1", "home"});
    expectFailure(ending, "home is not connected after 1.");
    EXPECT_THAT(ending.err, AllOf(HasSubstr("the last state is SCANNING"),
                                  HasSubstr("no access point in range")));
    EXPECT_THAT(ending.out, HasSubstr("Connecting to home: SCANNING\n"));
}

TEST_F(Connect, PrintsNoStatesWithJson) {
    serveStates(twice({SCANNING, stateOn("4WAY_HANDSHAKE"), DISCONNECTED}));
    CommandFixture::expectFailure(platwifi({"connect", "--json", "home"}),
                                  "the key is probably wrong");
}

} // namespace
