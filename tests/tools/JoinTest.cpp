// The command join, with a scripted client and a control socket of the test.

#include "CommandFixture.h"
#include "Terminal.h"
#include "monitor/EventServer.h"
#include "support/Checkpoint.h"

#include <nlohmann/json.hpp>

#include <csignal>
#include <fstream>

using nlohmann::json;
using test::Arguments;
using test::CAPTURED;
using test::Ending;
using test::Program;
using test::Streams;
using testing::AllOf;
using testing::Contains;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using Messages = std::vector<std::string>;

const std::string SCANNED = "<3>CTRL-EVENT-SCAN-RESULTS ";
const std::string IDLE = "wpa_state=INACTIVE\n";

const std::string WPA2 = "[WPA2-PSK-CCMP][ESS]";
const std::string WPA3 = "[WPA2-SAE-CCMP][ESS]";
const std::string OPEN = "[ESS]";
const std::string ENTERPRISE = "[WPA2-EAP-CCMP][ESS]";

const std::string ALL_CAPABILITIES = "NONE IEEE8021X WPA-EAP WPA-PSK OWE FT-PSK FT-EAP SAE";

std::string lineFor(const std::string& ssid, const std::string& flags,
                    const std::string& bssid = "02:00:00:00:01:00") {
    return bssid + "\t2412\t-40\t" + flags + '\t' + ssid + '\n';
}

std::string statusOn(const std::string& ssid, const std::string& id) {
    return "bssid=02:00:00:00:01:00\nfreq=2412\nssid=" + ssid + "\nid=" + id +
           "\nkey_mgmt=WPA2-PSK\nwpa_state=COMPLETED\n";
}

Messages wrongKey(const std::string& ssid) {
    return {"<3>Trying to associate with 02:00:00:00:01:00 (SSID='" + ssid + "' freq=2412 MHz)",
            "<3>WPA: 4-Way Handshake failed - pre-shared key may be incorrect"};
}

class Join : public test::CommandFixture {
protected:
    /// What a scan finds, and a supplicant with `networks` that connects to `ssid` when it is selected.
    void prepare(const std::string& found, const std::string& ssid = "cafe",
                 const std::vector<std::string>& networks = {"home"}) {
        const std::string id = std::to_string(networks.size());
        answerStatus({IDLE, IDLE, statusOn(ssid, id)});
        finish(found, networks);
    }

    /// The same supplicant does not connect.
    void prepareFailure(const std::string& found,
                        const std::vector<std::string>& networks = {"home"},
                        const std::string& state = IDLE) {
        answerStatus({state});
        finish(found, networks);
    }

    /// The answers to the client's command "status", that of the load first; the last one repeats.
    void answerStatus(const std::vector<std::string>& answers) {
        auto rule = on({"status"});
        for (std::size_t i = 0; i < answers.size(); ++i) {
            if (i > 0)
                rule.then();
            rule.prints(answers[i]);
        }
    }

    void finish(const std::string& found, const std::vector<std::string>& networks) {
        const std::string id = std::to_string(networks.size());
        accept({"scan"});
        on({"scan_results"}).prints(test::SCAN_HEADER + found);
        on({"get_capability", "key_mgmt"}).prints(m_capabilities);
        on({"add_network"}).prints(id + "\n");
        accept({"enable_network", id});
        accept({"disable_network", id});
        accept({"disconnect"});
        on({"signal_poll"}).prints("RSSI=-40\nLINKSPEED=54\n");
        for (const char* const each : {"0", "1"})
            on({"select", each}).pausesAt(m_selection.path()).prints("OK\n");
        serve(networks);
    }

    /// Serves a scan and then a connection, with these messages after its selection.
    void follow(const Messages& messages = {}) {
        scanOnce();
        followConnection(messages);
    }

    void scanOnce() {
        m_server.attach();
        m_server.send(SCANNED);
    }

    void followConnection(const Messages& messages = {}) {
        m_server.attach();
        m_selection.awaitArrival();
        for (const std::string& message : messages)
            m_server.send(message);
        m_selection.letGo();
    }

    Ending joined(const Arguments& arguments, const std::string& input = "",
                  const Messages& messages = {}) {
        const platform::FileDescriptor file = test::fileWith(input);
        Program program(arguments, Streams{file.number()});
        follow(messages);
        return program.end();
    }

    /// Of a join that ends after its scans.
    Ending refused(const Arguments& arguments, int scans = 1) {
        Program program(arguments);
        m_server.attach();
        for (int scan = 0; scan < scans; ++scan)
            m_server.send(SCANNED);
        return program.end();
    }

    static void expectFailure(const Ending& ending, const std::string& says, int status = 1) {
        EXPECT_EQ(ending.status, status);
        expectOneLine(ending, says);
    }

    std::string m_capabilities = ALL_CAPABILITIES;
    test::EventServer m_server;
    test::Checkpoint m_selection{"/tmp/selection"};
};

TEST_F(Join, SavesANetworkOnlyWhenItIsConnected) {
    prepare(lineFor("cafe", WPA2));
    const std::string shown = outputOf(joined({"join", "cafe", "psk=-"}, "correct horse\n"));
    EXPECT_THAT(shown, HasSubstr("Looking for cafe: WPA2-PSK, -40 dBm\n"));
    EXPECT_THAT(shown, ContainsRegex("\nConnected to cafe after [0-9]+\\.[0-9] s: "
                                     "02:00:00:00:01:00, -40 dBm, no address yet\\.\n"
                                     "cafe is saved\\.\n$"));
    EXPECT_THAT(changes(),
                ElementsAre("add_network", "set_network 1 ssid \"cafe\"", "enable_network 1",
                            "disable_network 1", "set_network 1 ssid \"cafe\"",
                            "set_network 1 key_mgmt WPA-PSK", "set_network 1 proto RSN",
                            "set_network 1 psk \"correct horse\"", "set_network 1 ieee80211w 1",
                            "select 1", "set_network 0 disabled 0", "save_config", "signal_poll"));
}

TEST_F(Join, AsksNothingForAnOpenNetwork) {
    prepare(lineFor("cafe", OPEN));
    outputOf(joined({"join", "cafe"}));
    EXPECT_THAT(changes(), AllOf(Contains("set_network 1 key_mgmt NONE"), Contains("save_config")));
}

TEST_F(Join, TakesTheBestSecurity) {
    prepare(lineFor("cafe", OPEN) + lineFor("cafe", WPA2) + lineFor("cafe", WPA3) +
            lineFor("other", "[WPA2-EAP-SUITE-B-192-GCMP-256][ESS]"));
    outputOf(joined({"join", "cafe", "psk=-"}, "short\n"));
    EXPECT_THAT(changes(),
                AllOf(Contains("set_network 1 key_mgmt SAE"),
                      Contains("set_network 1 sae_password \"short\""),
                      Contains("set_network 1 ieee80211w 2"), Not(Contains(HasSubstr("bssid")))));
}

TEST_F(Join, LeavesToTheUserWhatTheUserGives) {
    prepare(lineFor("cafe", WPA3));
    outputOf(joined({"join", "cafe", "psk=-", "pmf=optional", "priority=3"}, "correct horse\n"));
    EXPECT_THAT(changes(), AllOf(Contains("set_network 1 key_mgmt SAE"),
                                 Contains("set_network 1 ieee80211w 1"),
                                 Contains("set_network 1 priority 3")));
}

TEST_F(Join, TakesAKeyManagementThatTheUserGivesWithoutAScan) {
    prepare(lineFor("cafe", WPA3));
    const auto key = test::fileWith("correct horse\n");
    Program program({"join", "cafe", "psk=-", "key_mgmt=WPA-PSK"}, Streams{key.number()});
    followConnection();
    outputOf(program.end());
    EXPECT_THAT(changes(), Contains("set_network 1 key_mgmt WPA-PSK"));
    EXPECT_EQ(callsOf({"scan"}), 0U);
}

TEST_F(Join, TakesBackANetworkWithAWrongKey) {
    prepareFailure(lineFor("cafe", WPA2));
    const Ending ending = joined({"join", "cafe", "psk=-"}, "wrong horse\n", wrongKey("cafe"));
    expectFailure(ending, "nothing was changed; platwifi join asks for the key again", 10);
    EXPECT_EQ(changes().back(), "reassociate");
    EXPECT_THAT(changes(), AllOf(Contains("reconfigure"), Not(Contains("save_config"))));
}

TEST_F(Join, TakesBackANetworkAtTheTimeout) {
    prepareFailure(lineFor("cafe", OPEN));
    const Ending ending = joined({"join", "cafe", "--timeout", "1"});
    EXPECT_EQ(ending.status, 18);
    EXPECT_THAT(changes(), AllOf(Contains("reconfigure"), Not(Contains("save_config"))));
}

TEST_F(Join, StaysDisconnectedIfItWas) {
    accept({"reassociate"});
    prepareFailure(lineFor("cafe", WPA2), {"home"}, "wpa_state=DISCONNECTED\n");
    joined({"join", "cafe", "psk=-"}, "wrong horse\n", wrongKey("cafe"));
    EXPECT_EQ(changes().back(), "disconnect");
}

TEST_F(Join, TakesBackANetworkThatCannotBeSaved) {
    on({"save_config"}).prints("FAIL\n");
    prepare(lineFor("cafe", OPEN));
    expectFailure(joined({"join", "cafe"}), "did not save its configuration, and nothing was");
    EXPECT_THAT(changes(), Contains("reconfigure"));
}

TEST_F(Join, TakesBackWhatTheSupplicantRefuses) {
    on({"set_network", "1", "phase1", "\"x\""}).prints("FAIL\n");
    prepare(lineFor("cafe", OPEN));
    expectFailure(refused({"join", "cafe", "phase1=x"}), "refused the field phase1");
    EXPECT_THAT(changes(), AllOf(Contains("reconfigure"), Not(Contains("select 1"))));
}

TEST_F(Join, TakesBackANetworkAtASignal) {
    prepareFailure(lineFor("cafe", OPEN));
    Program program({"join", "cafe"});
    follow();
    program.signal(SIGINT);
    const Ending ending = program.end();
    EXPECT_EQ(ending.status, -SIGINT);
    expectOneLine(ending, "interrupted; nothing was changed");
    EXPECT_THAT(changes(), AllOf(Contains("reconfigure"), Not(Contains("save_config"))));
}

// The supplicant has the network again when it has read its file.
TEST_F(Join, RemovesWhatAnotherProgramHasSavedMeanwhile) {
    const std::string both = test::LoadedHost::listed({"home", "cafe"});
    on({"list_networks"})
        .prints(test::LoadedHost::listed({"home"}))
        .then()
        .prints(test::LoadedHost::listed({"home"}))
        .then()
        .prints(both);
    accept({"remove_network", "1"});
    prepareFailure(lineFor("cafe", WPA2));
    joined({"join", "cafe", "psk=-"}, "wrong horse\n", wrongKey("cafe"));
    const auto all = changes();
    const auto reread = std::find(all.begin(), all.end(), "reconfigure");
    EXPECT_THAT(std::vector<std::string>(reread, all.end()),
                ElementsAre("reconfigure", "remove_network 1", "save_config", "reassociate"));
}

TEST_F(Join, ConnectsToASavedNetworkWithoutAQuestion) {
    answerStatus({IDLE, statusOn("home", "0")});
    finish("", {"home"});
    Program program({"join", "home"});
    followConnection();
    EXPECT_THAT(outputOf(program.end()),
                AllOf(HasSubstr("Connected to home after"), Not(HasSubstr("saved"))));
    EXPECT_THAT(changes(), ElementsAre("select 0", "signal_poll"));
}

TEST_F(Join, ReplacesTheKeyOfASavedNetwork) {
    answerStatus({IDLE, IDLE, IDLE, statusOn("home", "0")});
    finish("", {"home"});
    const auto key = test::fileWith("another horse\n");
    Program program({"join", "home", "psk=-"}, Streams{key.number()});
    followConnection();
    EXPECT_THAT(outputOf(program.end()), HasSubstr("home is saved.\n"));
    EXPECT_THAT(changes(), ElementsAre("set_network 0 psk \"another horse\"", "select 0",
                                       "save_config", "signal_poll"));
}

TEST_F(Join, DoesNotTakeTheConnectionWithTheOldKeyForOneWithTheNewKey) {
    answerStatus({statusOn("home", "0"), statusOn("home", "0"), statusOn("home", "0"), IDLE});
    finish("", {"home"});
    const auto key = test::fileWith("another horse\n");
    Program program({"join", "home", "psk=-"}, Streams{key.number()});
    followConnection(wrongKey("home"));
    EXPECT_EQ(program.end().status, 10);
    auto all = changes();
    EXPECT_THAT(all, Not(Contains("save_config")));
    all.resize(3);
    EXPECT_THAT(all,
                ElementsAre("set_network 0 psk \"another horse\"", "disconnect", "reassociate"));
}

TEST_F(Join, KeepsTheKeyOfASavedNetworkIfTheNewOneIsWrong) {
    prepareFailure("", {"home"});
    const auto key = test::fileWith("another horse\n");
    Program program({"join", "home", "psk=-"}, Streams{key.number()});
    followConnection(wrongKey("home"));
    expectFailure(program.end(), "nothing was changed", 10);
    EXPECT_THAT(changes(), AllOf(Contains("reconfigure"), Not(Contains("save_config")),
                                 Not(Contains(HasSubstr("remove_network")))));
}

TEST_F(Join, RefusesAKeyForAnOpenNetwork) {
    prepare(lineFor("cafe", OPEN));
    expectFailure(refused({"join", "cafe", "psk=-"}),
                  "cafe is not joined: its security is open, which takes no key; leave out psk");
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(Join, SaysWhatIsMissingWithoutATerminal) {
    const std::pair<std::string, std::string> cases[] = {
        {WPA2, "cafe is not joined, it needs: psk=- (from standard input) or psk=@FILE"},
        {"[WEP][ESS]", "cafe is not joined, it needs: key1=-"},
        {ENTERPRISE, "cafe is not joined, it needs: --eap PEAP, TTLS or TLS, eapIdentity=NAME, "
                     "eapPassword=-, CACertificateFile=PATH (empty: any server is trusted)"},
    };
    for (const auto& [flags, says] : cases) {
        host.reset();
        prepare(lineFor("cafe", flags));
        expectFailure(refused({"join", "cafe"}), says);
        EXPECT_THAT(changes(), IsEmpty());
    }
}

TEST_F(Join, NeedsTheCertificatesOfTls) {
    prepare(lineFor("cafe", ENTERPRISE));
    expectFailure(refused({"join", "cafe", "--eap", "tls", "CACertificateDir=/tmp"}),
                  "it needs: eapIdentity=NAME, clientCertificate=PATH, privateKeyFile=PATH\n");
}

TEST_F(Join, AsksForTheKeyOnATerminal) {
    prepare(lineFor("cafe", WPA2));
    test::TerminalPair terminal(80);
    const int end = terminal.ownEnd();
    Program program({"join", "cafe"}, {end, end, end});
    scanOnce();
    terminal.readUntil("psk: ");
    terminal.type("correct horse\n");
    followConnection();
    EXPECT_THAT(terminal.readUntil("cafe is saved.\r\n"), Not(HasSubstr("correct horse")));
    EXPECT_EQ(program.end().status, 0);
    EXPECT_THAT(changes(), Contains("set_network 1 psk \"correct horse\""));
}

TEST_F(Join, AsksForTheLoginOnATerminal) {
    prepare(lineFor("cafe", ENTERPRISE));
    test::TerminalPair terminal(80);
    const int end = terminal.ownEnd();
    Program program({"join", "cafe", "--eap", "PEAP", "CACertificateFile="}, {end, end, end});
    scanOnce();
    terminal.readUntil("eapIdentity: ");
    terminal.type("alice\n");
    terminal.readUntil("eapPassword: ");
    terminal.type("secret\n");
    followConnection();
    EXPECT_THAT(terminal.readUntil("cafe is saved.\r\n"),
                AllOf(HasSubstr("alice"), Not(HasSubstr("secret"))));
    EXPECT_EQ(program.end().status, 0);
    EXPECT_THAT(changes(), AllOf(Contains("set_network 1 eap PEAP"),
                                 Contains("set_network 1 identity \"alice\""),
                                 Contains("set_network 1 password \"secret\""),
                                 Contains("set_network 1 key_mgmt WPA-EAP")));
}

TEST_F(Join, NamesANearSsidIfThereIsNone) {
    prepare(lineFor("coffee", OPEN) + lineFor("caef", OPEN));
    expectFailure(refused({"join", "cafe"}, 3),
                  "cafe is not connected: no access point of this name is in range (did you mean "
                  "caef?); platwifi scan lists what is; --hidden looks for a hidden one",
                  15);
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(callsOf({"scan"}), 3U) << "a scan may miss a beacon";
}

TEST_F(Join, AsksForAHiddenNetworkByItsName) {
    accept({"scan", "ssid 63616665 wildcard_ssid=1"});
    prepare(lineFor("cafe", OPEN));
    outputOf(joined({"join", "cafe", "--hidden"}));
    EXPECT_EQ(callsOf({"scan", "ssid 63616665 wildcard_ssid=1"}), 1U);
    EXPECT_THAT(changes(), Contains("set_network 1 scan_ssid 1"));
}

TEST_F(Join, DoesNotProposeToLookForAHiddenNetworkAgain) {
    accept({"scan", "ssid 63616665 wildcard_ssid=1"});
    prepare(lineFor("", OPEN));
    expectFailure(refused({"join", "cafe", "--hidden"}, 3),
                  "no access point of this name is in range; platwifi scan lists what is; see that "
                  "the name is right",
                  15);
}

TEST_F(Join, AsksAgainAfterAScanOfTheSupplicant) {
    on({"scan"}).prints("FAIL-BUSY\n").then().prints("OK\n");
    prepare(lineFor("cafe", OPEN));
    Program program({"join", "cafe"});
    m_server.attach();
    m_server.send(SCANNED);
    m_server.send(SCANNED);
    followConnection();
    outputOf(program.end());
    EXPECT_EQ(callsOf({"scan"}), 2U);
}

TEST_F(Join, ReportsAnAdapterThatCannotScan) {
    on({"scan"}).prints("FAIL\n");
    prepareFailure("", {"home"}, "wpa_state=INTERFACE_DISABLED\n");
    Program program({"join", "cafe"});
    m_server.attach();
    expectFailure(program.end(), "the adapter is blocked or switched off", 19);
}

TEST_F(Join, NamesWhatTheSupplicantCannotDo) {
    m_capabilities = "NONE IEEE8021X WPA-EAP WPA-PSK";
    prepare(lineFor("cafe", WPA3));
    expectFailure(refused({"join", "cafe"}),
                  "the access point offers only WPA3-SAE, which the supplicant or the radio cannot",
                  16);
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(Join, PrintsOneRecordWithJson) {
    prepare(lineFor("cafe", WPA2));
    const json record =
        json::parse(outputOf(joined({"join", "cafe", "psk=-", "--json"}, "correct horse\n")));
    EXPECT_EQ(record["ssid"], "cafe");
    EXPECT_EQ(record["done"], "joined");
    EXPECT_EQ(record["saved"], true);
    EXPECT_EQ(record["security"], "WPA2-PSK");
    EXPECT_EQ(record["link"]["bssid"], "02:00:00:00:01:00");
    EXPECT_EQ(record["link"]["signal"], -40);
    EXPECT_EQ(record["cause"], nullptr);
}

TEST_F(Join, PrintsTheCauseWithJson) {
    prepareFailure(lineFor("cafe", WPA2));
    const Ending ending =
        joined({"join", "cafe", "psk=-", "--json"}, "wrong horse\n", wrongKey("cafe"));
    EXPECT_EQ(ending.status, 10);
    const json record = json::parse(ending.out);
    EXPECT_EQ(record["ssid"], "cafe");
    EXPECT_EQ(record["cause"], "wrongKey");
    EXPECT_THAT(record["message"].get<std::string>(), HasSubstr("nothing was changed"));
}

TEST_F(Join, RefusesWrongArgumentsFirst) {
    const std::pair<Arguments, std::string> cases[] = {
        {{"join", "cafe", "nonsense"}, "'nonsense' is no NAME=VALUE"},
        {{"join", "cafe", "key=x"}, "there is no property key"},
        {{"join", "cafe", "pmf=maybe"}, "pmf takes one of"},
        {{"join", "cafe", "--eap", "FAST"}, "it takes PEAP, TTLS or TLS"},
        {{"join", "cafe", "--eap", "PEAP", "eap=TLS"}, "eap is given twice"},
        {{"join", ""}, "an SSID has 1 to 32 bytes"},
    };
    for (const auto& [arguments, says] : cases) {
        const Ending ending = test::platwifi(arguments);
        EXPECT_EQ(ending.status, 2) << says;
        expectOneLine(ending, says);
    }
    EXPECT_THAT(host.calls(), IsEmpty());
}

} // namespace
