// What scan prints.

#include "CommandFixture.h"
#include "Terminal.h"
#include "TextLines.h"
#include "display/Text.h"

#include <nlohmann/json.hpp>

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::string FOUND = "02:00:00:00:02:00\t5180\t-30\t[WPA2-PSK+SAE-CCMP][ESS]\thome\n"
                          "02:00:00:00:01:00\t2412\t-81\t[WPA2-PSK-CCMP][ESS]\thome\n"
                          "02:00:00:00:03:00\t6115\t-55\t[WPA2-SAE-CCMP][ESS]\tcaf\\xc3\\xa9\n"
                          "02:00:00:00:04:00\t2437\t-90\t[ESS]\t\n";

class TheScan : public test::CommandFixture {
protected:
    TheScan() {
        setenv("LC_ALL", "C", 1);
        accept({"scan"});
    }
    ~TheScan() override { unsetenv("LC_ALL"); }

    /// Serves networks beside these access points.
    void find(const std::vector<std::string>& saved, const std::string& found = FOUND) {
        on({"scan_results"}).prints(test::SCAN_HEADER + found);
        serve(saved);
    }

    void connect() {
        on({"status"}).prints("bssid=02:00:00:00:02:00\nssid=home\nwpa_state=COMPLETED\n");
        find({"home", "caf\\xc3\\xa9", "away"});
    }

    static std::string of(test::Arguments arguments) {
        arguments.insert(arguments.begin(), "scan");
        return outputOf(test::quickPlatwifi(arguments));
    }

    /// A member of each access point.
    static std::vector<json> members(const char* name, test::Arguments arguments = {}) {
        arguments.emplace_back("--json");
        std::vector<json> values;
        for (const json& record : json::parse(of(arguments)))
            values.push_back(record.at(name));
        return values;
    }
};

TEST_F(TheScan, MarksWhatIsConnectedAndWhatIsSaved) {
    connect();
    EXPECT_EQ(of({}), "   SSID      BSSID              Ch  GHz  Signal     dBm  Security\n"
                      "*  home      02:00:00:00:02:00  36    5  #### 100%  -30  WPA2-PSK/WPA3-SAE\n"
                      "+  café      02:00:00:00:03:00  33    6  ####  90%  -55  WPA3-SAE\n"
                      "+  home      02:00:00:00:01:00   1  2.4  ##__  38%  -81  WPA2-PSK\n"
                      "   (hidden)  02:00:00:00:04:00   6  2.4  #___  20%  -90  open\n"
                      "* connected, + saved\n");
}

TEST_F(TheScan, HasBlocksInALocaleOfUtf8) {
    setenv("LC_ALL", "C.UTF-8", 1);
    connect();
    EXPECT_THAT(of({}), HasSubstr("▂▄▆█ 100%"));
    EXPECT_THAT(of({}), HasSubstr("▂▄__  38%"));
}

TEST_F(TheScan, HasNoLegendWithoutMarks) {
    find({"away"});
    EXPECT_THAT(of({}), testing::EndsWith("open\n"));
}

TEST_F(TheScan, MarksNoConnectionThatHasEnded) {
    on({"status"}).prints("bssid=02:00:00:00:02:00\nssid=home\nwpa_state=SCANNING\n");
    find({});
    EXPECT_THAT(members("connected"), ElementsAre(false, false, false, false));
}

TEST_F(TheScan, HasTheMarksForPrograms) {
    connect();
    EXPECT_THAT(members("connected"), ElementsAre(true, false, false, false));
    EXPECT_THAT(members("saved"), ElementsAre(true, true, true, false));
    EXPECT_THAT(members("percent"), ElementsAre(100, 90, 38, 20));
    EXPECT_THAT(members("band"), ElementsAre("5 GHz", "6 GHz", "2.4 GHz", "2.4 GHz"));
}

TEST_F(TheScan, HasWholeSsidsThatTheDriverHandsOutInPieces) {
    std::string ssid;
    for (int i = 0; i < 8; ++i)
        ssid += "\\xf0\\x9f\\x98\\x80";
    find({ssid}, "02:00:00:00:09:00\t2462\t-30\t[WPA2-PSK-CCMP][ESS]\t" + ssid + "\n" + FOUND);
    EXPECT_EQ(members("ssid")[0], "😀😀😀😀😀😀😀😀");
    EXPECT_THAT(members("saved"), ElementsAre(true, false, false, false, false));
}

TEST_F(TheScan, IsSortedAsItIsAskedFor) {
    find({});
    EXPECT_THAT(members("signal"), ElementsAre(-30, -55, -81, -90));
    EXPECT_THAT(members("signal", {"--sort", "signal"}), ElementsAre(-30, -55, -81, -90));
    EXPECT_THAT(members("signal", {"--sort", "ssid"}), ElementsAre(-90, -55, -30, -81));
    EXPECT_THAT(members("signal", {"--sort", "channel"}), ElementsAre(-81, -90, -30, -55));
    EXPECT_THAT(members("signal", {"--sort=security"}), ElementsAre(-81, -30, -55, -90));
}

TEST_F(TheScan, HasNoOtherOrder) {
    expectFailure(test::platwifi({"scan", "--sort", "size"}),
                  "one of signal, ssid, channel, security", 2);
}

// A BSSID that is cut is of no use.
TEST_F(TheScan, FitsATerminalOf80ColumnsWithWholeBssids) {
    const std::string longest(32, 'x');
    find({longest},
         "02:00:00:00:05:00\t6115\t-100\t[WPA2-EAP-SHA256+FT/EAP-CCMP][ESS]\t" + longest + "\n");
    test::TerminalPair terminal(80);
    test::Program program({"scan"}, {test::CAPTURED, terminal.ownEnd()}, QUICK_PLATWIFI_PROGRAM);
    terminal.closeOwnEnd();
    const std::string text = terminal.readToEnd();
    outputOf(program.end());
    const auto lines = test::linesOf(text);
    ASSERT_GE(lines.size(), 2u) << text;
    EXPECT_THAT(lines[1], AllOf(HasSubstr("xxxxxxxx…"), HasSubstr("  02:00:00:00:05:00  "),
                                HasSubstr("____   0%"), HasSubstr("WPA2-Ent")));
    EXPECT_EQ(cli::cellsOf(lines[1].substr(0, lines[1].find('\r'))), 80u);
}

} // namespace
