// The command connect, with a scripted client and a control socket of the test.

#include "CommandFixture.h"
#include "support/Checkpoint.h"

#include "../monitor/EventServer.h"

#include <nlohmann/json.hpp>

#include <csignal>
#include <filesystem>

using nlohmann::json;
using test::Arguments;
using test::Ending;
using test::EventServer;
using test::Program;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Messages = std::vector<std::string>;

const std::string ASSOCIATING =
    "Trying to associate with 02:00:00:00:01:00 (SSID='home' freq=2412 MHz)";
const std::string WRONG_KEY = "WPA: 4-Way Handshake failed - pre-shared key may be incorrect";
const std::string SCAN_STARTED = "CTRL-EVENT-SCAN-STARTED ";
const std::string SCAN_FINISHED = "CTRL-EVENT-SCAN-RESULTS ";
const std::string EAP_FAILED = "CTRL-EVENT-EAP-FAILURE EAP authentication failed";
const std::string CONNECTED =
    "CTRL-EVENT-CONNECTED - Connection to 02:00:00:00:01:00 completed [id=0 id_str=]";
const Messages TWO_SCANS = {SCAN_STARTED, SCAN_FINISHED, SCAN_STARTED, SCAN_FINISHED};

const std::string UNKNOWN_STATE = "wpa_state=AUTHENTICATING\n"; // a state that is not shown
const std::string ON_HOME = "ssid=home\nid=0\nwpa_state=COMPLETED\n";
const std::string ON_WORK = "ssid=work\nid=1\nwpa_state=COMPLETED\n";

class Connect : public test::CommandFixture {
protected:
    // The answers to the client's command "status", that of the load first; the last one repeats.
    void serveStates(const Messages& answers,
                     const std::vector<std::string>& networks = {"home", "work"}) {
        auto rule = on({"status"});
        for (std::size_t i = 0; i < answers.size(); ++i) {
            if (i > 0)
                rule.then();
            rule.prints(answers[i]);
        }
        for (const char* const id : {"0", "1"})
            accept({"set_network", id, "disabled", "0"});
        accept({"disconnect"});
        on({"get_network", "0", "scan_ssid"}).prints("0");
        on({"select", "0"}).pausesAt(m_selection.path()).prints("OK\n");
        serve(networks);
    }

    Ending ending(const Messages& messages, const Arguments& arguments = {"connect", "home"}) {
        Program program(arguments);
        follow(messages);
        return program.end();
    }

    /// All messages arrive before the command looks at the first one.
    void follow(const Messages& messages) {
        m_server->attach();
        m_selection.awaitArrival();
        for (const std::string& message : messages)
            m_server->send("<3>" + message);
        m_selection.letGo();
    }

    std::optional<EventServer> m_server{std::in_place};
    test::Checkpoint m_selection{"/tmp/selection"};
};

TEST_F(Connect, ReportsAConnection) {
    serveStates({"wpa_state=INACTIVE\n", "wpa_state=SCANNING\n", "wpa_state=SCANNING\n", ON_HOME});
    const std::string shown = outputOf(ending({SCAN_STARTED, ASSOCIATING, CONNECTED}));
    EXPECT_THAT(shown, ContainsRegex("^Connecting to home: SCANNING.* COMPLETED\n"
                                     "Connected to home after [0-9]+\\.[0-9] s\\.\n$"));
    EXPECT_EQ(callsOf({"select", "0"}), 1u);
}

TEST_F(Connect, EndsAlsoIfTheConnectionStandsAlready) { // CAUSE-14
    serveStates({ON_HOME});
    EXPECT_THAT(outputOf(ending({})), HasSubstr("Connecting to home: COMPLETED\nConnected to"));
}

TEST_F(Connect, IgnoresTheConnectionToAnotherNetwork) {
    serveStates({ON_WORK, ON_WORK, ON_WORK, ON_HOME});
    EXPECT_THAT(outputOf(ending({"CTRL-EVENT-CONNECTED - Connection to 02:00:00:00:09:00 "
                                 "completed [id=1 id_str=]"})),
                HasSubstr("Connecting to home: COMPLETED\n"));
}

TEST_F(Connect, ReportsAConnectionInJson) {
    serveStates({ON_HOME});
    EXPECT_EQ(json::parse(outputOf(ending({}, {"connect", "home", "--json"}))),
              json({{"ssid", "home"}, {"state", "COMPLETED"}, {"cause", nullptr}}));
}

TEST_F(Connect, ShowsTheStatesThatTheEventsReport) {
    serveStates({UNKNOWN_STATE});
    const std::string authenticating =
        "SME: Trying to authenticate with 02:00:00:00:01:00 (SSID='home' freq=2412 MHz)";
    const Ending end = ending({SCAN_STARTED, authenticating, ASSOCIATING, WRONG_KEY});
    EXPECT_EQ(end.out, "Connecting to home: SCANNING AUTHENTICATING ASSOCIATING\n");
    EXPECT_EQ(end.status, 10);
    expectOneLine(end, "home is not connected: the access point refuses the key; ");
}

struct Failing {
    Messages messages;
    int status;
    const char* word;
    const char* line; // behind the name of the program
};

const Failing FAILING[] = {
    {{ASSOCIATING, WRONG_KEY},
     10,
     "wrongKey",
     "home is not connected: the access point refuses the key; correct it with platwifi set SSID "
     "psk=-"},
    {{ASSOCIATING, "CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=17",
      "CTRL-EVENT-SSID-TEMP-DISABLED id=0 ssid=\"home\" auth_failures=1 duration=10 "
      "reason=CONN_FAILED"},
     11,
     "refused",
     "home is not connected: the access point refuses this device, status 17: the access point has "
     "too many stations; try again later, or see the settings of the access point"},
    {{ASSOCIATING, EAP_FAILED},
     12,
     "loginRefused",
     "home is not connected: the server refuses the identity or the password; correct them with "
     "platwifi set SSID eapIdentity=NAME eapPassword=-"},
    {{ASSOCIATING, "CTRL-EVENT-EAP-TLS-CERT-ERROR reason=1 depth=1 subject='/CN=Lab' err='x'",
      EAP_FAILED},
     13,
     "serverNotTrusted",
     "home is not connected: the certificate of the server is not trusted: no configured authority "
     "has issued it (/CN=Lab); set the certificate of its authority with platwifi set SSID "
     "CACertificateFile=PATH"},
    {{ASSOCIATING, "EAP: Failed to initialize EAP method: vendor 0 method 25 (PEAP)", EAP_FAILED},
     14,
     "certificateFile",
     "home is not connected: the supplicant cannot load a certificate or the private key; correct "
     "it with platwifi set; platwifi show SSID has the paths"},
    {TWO_SCANS, 15, "notInRange",
     "home is not connected: no access point of this name is in range; see platwifi scan; a hidden "
     "network needs platwifi set SSID ssidBroadcasted=false"},
    {{ASSOCIATING, "CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=31"},
     17,
     "needsPmfOrWpa3",
     "home is not connected: the access point refuses a connection without management frame "
     "protection; allow it with platwifi set SSID pmf=optional"},
    {{"CTRL-EVENT-TERMINATING "},
     20,
     "supplicantGone",
     "home is not connected: the supplicant no longer serves the interface; start it again; "
     "platwifi doctor tells more"},
};

TEST_F(Connect, EndsWithTheStatusTheLineAndTheWordOfTheCause) {
    serveStates({UNKNOWN_STATE});
    for (const Failing& row : FAILING) {
        SCOPED_TRACE(row.word);
        const Ending end = ending(row.messages, {"connect", "--json", "home"});
        EXPECT_EQ(end.status, row.status);
        EXPECT_EQ(end.err, std::string("platwifi: ") + row.line + "\n");
        EXPECT_EQ(json::parse(end.out), json({{"ssid", "home"},
                                              {"state", "UNKNOWN"},
                                              {"cause", row.word},
                                              {"message", row.line}}));
    }
}

// The client's command "scan_results" is answered like this.
struct InRange {
    const char* line; // of the client; BSSID and frequency come before it
    const char* bss;  // what the client prints of the access point
    int status;
    const char* says;
};

constexpr InRange IN_RANGE[] = {
    // CAUSE-6
    {"-30\t[WPA2-PSK-CCMP][ESS]\twork", "", 15, "no access point of this name is in range"},
    // CAUSE-7
    {"-30\t[ESS]\thome", "", 16,
     "the access point has the security open, the network here has WPA-PSK; compare"},
    // CAUSE-8
    {"-30\t[WPA2-SAE-CCMP][ESS]\thome", "", 17, "requires WPA3 (WPA3-SAE)"},
    {"-30\t[WPA2-PSK-CCMP][ESS]\thome",
     "id=1\nie=30140100000fac040100000fac040100000fac02c000\nflags=[ESS]\n", 17,
     "requires management frame protection, which the network here does not have; set it with "
     "platwifi set SSID pmf=required"},
};

TEST_F(Connect, JudgesTheAccessPointsInRange) { // CAUSE-6, CAUSE-7, CAUSE-8
    for (const InRange& row : IN_RANGE) {
        host.reset();
        on({"get_network", "0", "key_mgmt"}).prints("WPA-PSK");
        on({"bss", "02:00:00:00:01:00"}).prints(row.bss);
        on({"scan_results"})
            .prints(test::SCAN_HEADER + "02:00:00:00:01:00\t2412\t" + row.line + "\n");
        serveStates({UNKNOWN_STATE});
        const Ending end = ending(TWO_SCANS, {"connect", "--timeout", "3600", "home"});
        EXPECT_EQ(end.status, row.status);
        expectOneLine(end, row.says);
    }
}

TEST_F(Connect, JudgesTheRangeByOneScanAtTheTimeout) { // CAUSE-6
    serveStates({UNKNOWN_STATE});
    EXPECT_EQ(ending({SCAN_STARTED, SCAN_FINISHED}, {"connect", "-t", "1", "home"}).status, 15);
}

TEST_F(Connect, WaitsIfAnAccessPointFits) {
    on({"get_network", "0", "key_mgmt"}).prints("WPA-PSK");
    on({"scan_results"})
        .prints(test::SCAN_HEADER + "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\thome\n");
    serveStates({UNKNOWN_STATE});
    Messages messages = TWO_SCANS;
    messages.insert(messages.end(), {ASSOCIATING, WRONG_KEY});
    EXPECT_EQ(ending(messages).status, 10);
}

// A scan can miss a beacon, and one that began before may not look for the name of a hidden network.
TEST_F(Connect, WaitsForTheSecondScan) {
    serveStates({UNKNOWN_STATE});
    EXPECT_EQ(ending({SCAN_FINISHED, SCAN_STARTED, SCAN_FINISHED, ASSOCIATING, WRONG_KEY}).status,
              10);
}

TEST_F(Connect, FailsBeforeAnythingIsChangedIfAFileIsMissing) { // CAUSE-5
    on({"get_network", "0", "ca_cert"}).prints("\"/no/such.pem\"");
    serveStates({"wpa_state=INACTIVE\n"});
    const Ending end = test::platwifi({"connect", "home"});
    expectFailure(end,
                  "home is not connected: /no/such.pem (CACertificateFile) does not exist; put "
                  "it there, or correct the path with platwifi set SSID CACertificateFile=PATH",
                  14);
    EXPECT_TRUE(changes().empty());
}

TEST_F(Connect, FailsAtTheTimeout) { // CAUSE-9
    serveStates({UNKNOWN_STATE});
    const Ending end = ending({ASSOCIATING, "Authentication with 02:00:00:00:01:00 timed out."},
                              {"connect", "-t", "1", "home"});
    EXPECT_EQ(end.status, 18);
    expectOneLine(end, "home is not connected: that takes longer than 1 s, the last state is "
                       "UNKNOWN: the access point does not answer: is it near enough?; the "
                       "supplicant goes on trying: platwifi disconnect ends that");
}

TEST_F(Connect, FailsWhenTheSupplicantDies) { // CAUSE-11
    serveStates({UNKNOWN_STATE});
    Program program({"connect", "home"});
    follow({});
    m_server->die();
    const Ending end = program.end();
    EXPECT_EQ(end.status, 20);
    expectOneLine(end, "the supplicant no longer serves the interface");
}

TEST_F(Connect, NeedsTheControlSocket) {
    serveStates({UNKNOWN_STATE});
    m_server.reset();
    host.on({"arg"}).prints("12 wpa_supplicant\n");
    expectFailure(test::platwifi({"connect", "home"}), "/run/wpa_supplicant");
    EXPECT_EQ(callsOf({"select", "0"}), 0u);
}

const std::string ENABLED_AGAIN = "set_network 1 disabled 0";

TEST_F(Connect, EnablesTheOtherNetworksAgainWhenItIsConnected) { // CAUSE-12
    serveStates({ON_HOME});
    EXPECT_EQ(ending({}).status, 0);
    EXPECT_THAT(changes(), ElementsAre("select 0", ENABLED_AGAIN));
}

TEST_F(Connect, GivesTheAttemptUpAfterAFailure) { // CAUSE-12
    serveStates({UNKNOWN_STATE});
    EXPECT_EQ(ending({ASSOCIATING, WRONG_KEY}).status, 10);
    EXPECT_THAT(changes(), ElementsAre("select 0", "disconnect", ENABLED_AGAIN, "reassociate"));
}

TEST_F(Connect, GivesTheAttemptUpAfterTheTimeout) { // CAUSE-12
    serveStates({UNKNOWN_STATE});
    EXPECT_EQ(ending({}, {"connect", "-t", "1", "home"}).status, 18);
    EXPECT_THAT(changes(), ElementsAre("select 0", "disconnect", ENABLED_AGAIN, "reassociate"));
}

TEST_F(Connect, IsEndedByASignal) { // CAUSE-12
    serveStates({"wpa_state=SCANNING\n"});
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        const auto before = callsOf({"set_network", "1", "disabled", "0"});
        Program program({"connect", "home"});
        follow({});
        program.signal(signal);
        const Ending end = program.end();
        EXPECT_EQ(end.status, -signal);
        expectOneLine(end, "interrupted; the supplicant goes on trying: platwifi disconnect");
        EXPECT_EQ(callsOf({"set_network", "1", "disabled", "0"}), before + 1);
        EXPECT_FALSE(std::filesystem::exists("/dev/shm/wifi_shmem"));
    }
}

} // namespace
