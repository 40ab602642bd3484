// The document as a whole: the host, the list, and what is written when things are missing.

#include "MissingWifiUtil.h"
#include "ReportedSettings.h"
#include "SettingsState.h"
#include "platform/BufferedXWriter.h"
#include "supplicant/WifiUtil.h"
#include "support/WordTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <unistd.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace test {
namespace {

constexpr bool FULL = true;
constexpr bool SHORT = false;

const std::string IDLE = R"(adapter="wlan0" wifiEnabled="true" currentDaemonState="2")"
                         R"( currentNetwork="" currentNetworkState="0")";
const std::string FAILED = R"(adapter="Unknown" wifiEnabled="false" currentDaemonState="0")"
                           R"( currentNetwork="" currentNetworkState="0")";

// A document with this host and this number of networks.
std::string document(const std::string& host, int count = 0, const std::string& networks = "") {
    return "<wifiHostSettings " + host + ">\n  <wifiNetworkDatabase numberNetworks=\"" +
           std::to_string(count) + "\">\n" + networks +
           "  </wifiNetworkDatabase>\n</wifiHostSettings>\n";
}

std::string blankNetwork(const std::string& ssid) {
    return "    <wifiNetwork ssid=\"" + ssid +
           R"(" bssid="" ssidBroadcasted="false" mode="2" channel="0" strength="0" priority="0")"
           R"( status="1">
      <wifiSecuritySupported numberSupported="0"/>
      <wifiSecurityConfiguration numberConfigured="0"/>
    </wifiNetwork>
)";
}

class XmlDocument : public testing::Test {
protected:
    void setState(WpaState state) { reported.settings->*memberOf(SupplicantState{}) = state; }

    void expectBothForms(const std::string& document) {
        EXPECT_EQ(reported.xml(FULL), document);
        EXPECT_EQ(reported.xml(SHORT), document);
    }

    ReportedSettings reported;
};

TEST_F(XmlDocument, OfAnEmptyDatabaseHasNoEntries) {
    expectBothForms(document(IDLE));
}

TEST_F(XmlDocument, AfterAFailureHasNoAdapterAndNoNetworks) {
    reported.fail();
    expectBothForms(document(FAILED));
    EXPECT_THAT(reported.loaded.commands(), IsEmpty());
}

// XML-3
TEST_F(XmlDocument, WithoutAnAdapterAsksForTheSupplicantOfAny) {
    reported.fail();
    const char* const pidFile = "/var/run/wpa_supplicant.pid";
    std::ofstream(pidFile) << "217\n";
    EXPECT_THAT(reported.xml(FULL), HasSubstr(R"( adapter="Unknown" wifiEnabled="true" )"));
    unlink(pidFile);
    EXPECT_THAT(reported.xml(FULL), HasSubstr(R"( adapter="Unknown" wifiEnabled="false" )"));
}

// XML-4
TEST_F(XmlDocument, WithoutAnAdapterHasTheStateInMemory) {
    reported.fail();
    setState(WPA_STATE_ASSOCIATED);
    EXPECT_EQ(reported.xml(FULL),
              document(R"(adapter="Unknown" wifiEnabled="false" currentDaemonState="5")"
                       R"( currentNetwork="" currentNetworkState="0")"));
}

// XML-3
TEST_F(XmlDocument, SaysThatTheSupplicantDoesNotRun) {
    reported.answerStatus("wpa_state=INACTIVE\n", "1 init\n");
    EXPECT_THAT(reported.xml(FULL), HasSubstr(R"( wifiEnabled="false" currentDaemonState="2" )"));
}

// XML-2
TEST_F(XmlDocument, HasTheStateOfTheMoment) {
    WordRows states = stateWords();
    states.push_back({0, "ODD"});
    for (const WordRow& state : states) {
        reported.answerStatus(std::string("wpa_state=") + state.word + "\n");
        EXPECT_THAT(reported.xml(FULL),
                    HasSubstr(" currentDaemonState=\"" + std::to_string(state.number) + "\" "))
            << state.word;
    }
}

TEST_F(XmlDocument, HasAnUnknownStateWhenTheSupplicantDoesNotAnswer) {
    setState(WPA_STATE_COMPLETED);
    reported.loaded.standIn.reset();
    EXPECT_THAT(reported.xml(FULL), HasSubstr(R"( wifiEnabled="false" currentDaemonState="0" )"));
}

// XML-2
TEST_F(XmlDocument, HasTheNetworkThatIsCurrentAfterTheStatus) {
    reported.add("home");
    reported.add("work");
    reported.answerStatus("ssid=home\nwpa_state=COMPLETED\n");
    EXPECT_EQ(reported.xml(SHORT),
              document(R"(adapter="wlan0" wifiEnabled="true" currentDaemonState="8")"
                       R"( currentNetwork="home" currentNetworkState="3")",
                       2,
                       R"(    <wifiNetwork ssid="work" strength="0" status="1"/>)"
                       R"(    <wifiNetwork ssid="home" strength="0" status="3"/>)"));
    reported.answerStatus("wpa_state=SCANNING\n");
    EXPECT_THAT(reported.xml(SHORT),
                HasSubstr(R"(currentNetwork="home" currentNetworkState="4">)"));
    reported.answerStatus("wpa_state=DISCONNECTED\n");
    EXPECT_THAT(reported.xml(SHORT), HasSubstr(R"(currentNetwork="" currentNetworkState="0">)"));
}

TEST_F(XmlDocument, HasACurrentNetworkWithoutSsid) {
    WifiNetwork& network = reported.add("home");
    reported.answerStatus("ssid=home\nwpa_state=COMPLETED\n");
    reported.xml(SHORT);
    network.setSsid(nullptr);
    reported.answerStatus("wpa_state=COMPLETED\n");
    EXPECT_EQ(reported.xml(SHORT),
              document(R"(adapter="wlan0" wifiEnabled="true" currentDaemonState="8")"
                       R"( currentNetwork="" currentNetworkState="3")",
                       1, R"(    <wifiNetwork ssid="" strength="0" status="3"/>)"));
}

// XML-5
TEST_F(XmlDocument, ListsTheNetworkAddedLastFirst) {
    for (const char* const ssid : {"home", "work", "train"})
        reported.add(ssid);
    EXPECT_EQ(
        reported.xml(FULL),
        document(IDLE, 3, blankNetwork("train") + blankNetwork("work") + blankNetwork("home")));
}

// XML-5
TEST_F(XmlDocument, InShortHasAllNetworksOnOneLine) {
    WifiNetwork& home = reported.add("home");
    home.setStrength(83);
    home.setNetworkStatus(NETWORK_STATUS_DISABLED);
    WifiNetwork& work = reported.add("work");
    fill(work);
    work.setProtocol(PROTOCOL_WPA);
    work.setKeyManagement(KEY_MGMT_WPA_PSK);
    work.setStrength(100);
    EXPECT_EQ(reported.xml(SHORT),
              document(IDLE, 2,
                       R"(    <wifiNetwork ssid="work" strength="100" status="1"/>)"
                       R"(    <wifiNetwork ssid="home" strength="83" status="5"/>)"));
}

// XML-1
TEST_F(XmlDocument, BringsTheStatusOfTheNetworksUpToDateFirst) {
    reported.loadForRefresh("0\thome\tany\t\n");
    reported.loaded.standIn.on({"-iwlan0", "list_networks"})
        .prints("h\n0\thome\tany\t[DISABLED]\n");
    reported.loaded.standIn.on({"-iwlan0", "scan_results"})
        .prints("h\n02:00:00:00:00:01\t2462\t-40\t[ESS]\thome\n");
    EXPECT_THAT(reported.xml(SHORT), HasSubstr(R"(ssid="home" strength="100" status="5"/>)"));
}

TEST_F(XmlDocument, AsksWhetherTheSupplicantRunsBeforeItAsksForTheStatus) {
    reported.xml(FULL);
    EXPECT_THAT(reported.loaded.commands(), ElementsAre("-iwlan0 arg", "-iwlan0 status"));
}

// XML-1
TEST_F(XmlDocument, IsWrittenAlsoWhenTheStatusCannotBeBroughtUpToDate) {
    reported.loadForRefresh("0\thome\tany\t\n");
    EXPECT_THAT(reported.xml(SHORT), HasSubstr(R"(ssid="home" strength="0" status="1"/>)"));
}

TEST_F(XmlDocument, IsWrittenBehindWhatIsThere) {
    BufferedXWriter out;
    out.w("<!-- mine -->\n");
    EXPECT_TRUE(reported.settings->getWifiHostSettingsXML(&out, nullptr, FULL));
    EXPECT_EQ(out.text(), "<!-- mine -->\n" + reported.xml(FULL));
}

TEST_F(XmlDocument, IsNotWrittenWithoutAWriter) {
    EXPECT_FALSE(reported.settings->getWifiHostSettingsXML(nullptr, &reported.errors, FULL));
    EXPECT_THAT(reported.loaded.commands(), IsEmpty());
}

TEST_F(XmlDocument, IsNotWrittenWithoutADriver) {
    const MissingWifiUtil missing;
    BufferedXWriter out;
    EXPECT_FALSE(reported.settings->getWifiHostSettingsXML(&out, &reported.errors, FULL));
    EXPECT_STREQ(out.text(), "");
    EXPECT_EQ(reported.errors.savedError(), nullptr);
}

} // namespace
} // namespace test
