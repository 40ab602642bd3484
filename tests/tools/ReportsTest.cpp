// The output of commands to a file or a pipe.

#include "CommandFixture.h"
#include "TextLines.h"
#include "commands/CommandTable.h"
#include "support/Leftovers.h"

using test::platwifi;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class Reports : public test::CommandFixture {
protected:
    static std::string of(const test::Arguments& arguments) {
        return outputOf(platwifi(arguments));
    }

    static std::string ofQuick(const test::Arguments& arguments) {
        return outputOf(test::quickPlatwifi(arguments));
    }
};

TEST_F(Reports, ListTheAdapters) {
    serve({});
    EXPECT_EQ(of({"adapters"}), "wlan0\n");
}

TEST_F(Reports, ListTheAdaptersWithOneCommand) {
    serve({});
    of({"adapters"});
    EXPECT_EQ(commands(), std::vector<std::string>{"interface"});
}

TEST_F(Reports, ListTheAdaptersOfAClientThatStampsItsReplies) {
    host.on({"interface"}).prints("Selected\nAvailable interfaces:\n12:34:56.789: wlan0\nwlan1\n");
    EXPECT_EQ(of({"adapters"}), "wlan0 (the default)\nwlan1\n");
}

TEST_F(Reports, MarkTheDefaultAdapter) {
    host.on({"interface"}).prints("Selected\nAvailable interfaces:\nwlan0\nwlan1\n");
    EXPECT_EQ(of({"adapters"}), "wlan0 (the default)\nwlan1\n");
}

TEST_F(Reports, ShowTheStatus) {
    on({"status"}).prints("ssid=home\nid=0\nwpa_state=COMPLETED\n");
    serve({"home", "work"});
    EXPECT_EQ(of({"status"}), "Adapter:   wlan0\n"
                              "State:     COMPLETED\n"
                              "Network:   home\n"
                              "Networks:  2 configured\n");
}

TEST_F(Reports, ShowTheStatusWithoutANetwork) {
    serve({});
    EXPECT_THAT(of({"status"}), AllOf(HasSubstr("INACTIVE"), HasSubstr("Network:   none")));
}

TEST_F(Reports, ListTheNetworks) {
    on({"get_network", "0", "key_mgmt"}).prints("WPA-PSK");
    on({"get_network", "0", "priority"}).prints("12");
    on({"get_network", "1", "key_mgmt"}).prints("NONE");
    serve({"\\xe5\\x92\\x96\\xe5\\x95\\xa1", "home"});
    EXPECT_EQ(of({"networks"}), "SSID  Status   Key management  Priority  BSSID\n"
                                "home  enabled  NONE                   0  any\n"
                                "咖啡  enabled  WPA-PSK               12  any\n");
}

TEST_F(Reports, SayThatThereIsNothing) {
    accept({"scan"});
    serve({});
    EXPECT_THAT(of({"networks"}), HasSubstr("platwifi add SSID psk=-"));
    EXPECT_EQ(ofQuick({"scan"}), "No access point is in range.\n");
}

TEST_F(Reports, ShowANetwork) {
    on({"get_network", "0", "psk"}).prints("*");
    serve({"home"});
    const std::string shown = of({"show", "home"});
    EXPECT_THAT(shown, StartsWith("Property         Value\nssid             home\n"));
    EXPECT_THAT(shown, HasSubstr("psk              (set)\n"));
    EXPECT_THAT(shown, Not(HasSubstr("eapPassword"))) << "it is not set";
}

TEST_F(Reports, FindANetworkInEitherNotationOfItsSsid) {
    serve({"caf\\xc3\\xa9", "a\\\\tb"});
    EXPECT_THAT(of({"show", "café"}), HasSubstr("café"));
    EXPECT_THAT(of({"show", "caf\\xc3\\xa9"}), HasSubstr("café"));
    EXPECT_THAT(of({"show", "a\\tb"}), HasSubstr("a\\tb"));
}

TEST_F(Reports, ShowANetworkWhoseSsidBeginsWithADash) {
    serve({"-x"});
    EXPECT_THAT(of({"show", "--", "-x"}), HasSubstr("ssid             -x\n"));
}

TEST_F(Reports, ListTheScanStrongestFirst) {
    accept({"scan"});
    on({"scan_results"})
        .prints("bssid / frequency / signal level / flags / ssid\n"
                "02:00:00:00:01:00\t2412\t-71\t[WPA2-PSK-CCMP][ESS]\tfar\n"
                "02:00:00:00:02:00\t5180\t-30\t[ESS]\t\n");
    serve({});
    setenv("LC_ALL", "C", 1);
    EXPECT_EQ(ofQuick({"scan"}),
              "  SSID      BSSID              Ch  GHz  Signal     dBm  Security\n"
              "  (hidden)  02:00:00:00:02:00  36    5  #### 100%  -30  open\n"
              "  far       02:00:00:00:01:00   1  2.4  ###_  58%  -71  WPA2-PSK\n");
    unsetenv("LC_ALL");
    EXPECT_EQ(callsOf({"scan"}), 1u);
}

// The marks need no signal of the connection.
TEST_F(Reports, ListTheScanWithoutAskingForTheSignal) {
    accept({"scan"});
    on({"status"}).prints("bssid=02:00:00:00:01:00\nssid=home\nwpa_state=COMPLETED\n");
    on({"scan_results"})
        .prints("header\n02:00:00:00:01:00\t2412\t-71\t[WPA2-PSK-CCMP][ESS]\thome\n");
    serve({"home"});
    EXPECT_THAT(ofQuick({"scan"}), HasSubstr("*  home"));
    EXPECT_EQ(callsOf({"signal_poll"}), 0u);
}

TEST_F(Reports, ScanAnyInterfaceThatIsListed) {
    host.on({"interface"}).prints("Selected\nAvailable interfaces:\nwlan0\nwlan1\n");
    host.on({"-iwlan1", "status"}).prints("wpa_state=INACTIVE\n");
    host.on({"-iwlan1", "scan"}).prints("OK\n");
    host.on({"-iwlan1", "scan_results"}).prints("header\nb\t2412\t-7\t[ESS]\tbeside\n");
    serve({});
    EXPECT_THAT(ofQuick({"scan", "-i", "wlan1"}), HasSubstr("beside"));
    EXPECT_THAT(ofQuick({"scan", "-iwlan0"}), HasSubstr("No access point"));
}

TEST_F(Reports, LeaveNoResultFileOfAScan) {
    accept({"scan"});
    serve({});
    ofQuick({"scan"});
    EXPECT_TRUE(test::resultFiles().empty());
}

TEST_F(Reports, WriteADocument) {
    serve({"home"});
    const std::string brief = of({"xml"});
    EXPECT_THAT(brief, HasSubstr("home"));
    EXPECT_THAT(of({"xml", "--full"}),
                testing::ResultOf([](const std::string& text) { return text.size(); },
                                  testing::Gt(brief.size())));
}

TEST_F(Reports, DumpEverythingToStandardOutput) {
    serve({"home"});
    EXPECT_THAT(of({"dump"}), HasSubstr("home"));
}

TEST_F(Reports, HaveNoColours) {
    serve({"home"});
    EXPECT_THAT(of({"networks"}), Not(HasSubstr("\033")));
}

TEST_F(Reports, DoNotDependOnTheLocale) {
    serve({"caf\\xc3\\xa9"});
    setenv("LC_ALL", "C", 1);
    EXPECT_THAT(of({"show", "café"}), HasSubstr("ssid             café\n"));
    unsetenv("LC_ALL");
}

TEST_F(Reports, HaveHelpFor80Columns) {
    std::vector<test::Arguments> helps{{"--help"}};
    for (const cli::Command& command : cli::commands())
        helps.push_back({command.name, "--help"});
    ASSERT_GT(helps.size(), 1u);
    for (const test::Arguments& arguments : helps) {
        const std::string help = of(arguments);
        for (const std::string& line : test::linesOf(help))
            EXPECT_LE(line.size(), 80u) << line;
        const std::string command = arguments.size() == 1 ? "" : arguments[0];
        EXPECT_THAT(help, AllOf(HasSubstr("Usage: platwifi " + command), HasSubstr("Examples:"),
                                Not(HasSubstr("REQUIRED")), Not(HasSubstr("TEXT"))));
    }
}

TEST_F(Reports, ShowTheVersion) {
    EXPECT_THAT(of({"--version"}), testing::MatchesRegex("platwifi [0-9.]+\n"));
}

} // namespace
