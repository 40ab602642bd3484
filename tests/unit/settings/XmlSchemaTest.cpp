// What the schema of the document accepts. The documents of the other tests are checked against it as they
// are made.

#include "XmlReader.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <utility>

namespace test {
namespace {

const std::string NETWORK =
    R"(<wifiNetwork ssid="home" bssid="" ssidBroadcasted="false" mode="2" channel="0" strength="0")"
    R"( priority="0" status="1">)";
const std::string OFFER =
    R"(<wifiSecuritySupported numberSupported="1"><wifiSecurity type="wpa_psk"/>)"
    R"(</wifiSecuritySupported>)";
const std::string CONFIGURATION =
    R"(<wifiSecurityConfiguration numberConfigured="1"><configuration type="wpa_psk")"
    R"( supported="true" use="true" protocol="1" authentication="0" encryption="0" key_mgmt="2")"
    R"( psk=""/></wifiSecurityConfiguration>)";
const std::string DOCUMENT =
    R"(<wifiHostSettings adapter="wlan0" wifiEnabled="true" currentDaemonState="2")"
    R"( currentNetwork="" currentNetworkState="0"><wifiNetworkDatabase numberNetworks="1">)" +
    NETWORK + OFFER + CONFIGURATION + R"(</wifiNetwork></wifiNetworkDatabase></wifiHostSettings>)";

class XmlSchema : public testing::Test {
protected:
    void SetUp() override {
        if (!CAN_READ_XML)
            GTEST_SKIP() << "no libxml2 for the target system: documents are compared, not read";
    }
};

// The document with one piece replaced.
std::string with(const std::string& piece, const std::string& other) {
    std::string document = DOCUMENT;
    const std::size_t at = document.find(piece);
    EXPECT_NE(at, std::string::npos) << piece;
    return document.replace(at, piece.size(), other);
}

std::string faultOf(const std::string& document) {
    return test::faultOf(document, CheckedBy::SCHEMA);
}

TEST_F(XmlSchema, AcceptsADocument) {
    EXPECT_EQ(faultOf(DOCUMENT), "");
}

TEST_F(XmlSchema, AcceptsEveryTypeOfSecurity) {
    for (const std::string type : {"none", "wep", "wpa", "wpa_psk", "wpa2", "wpa2_psk"})
        EXPECT_EQ(
            faultOf(with(R"(<wifiSecurity type="wpa_psk")", "<wifiSecurity type=\"" + type + "\"")),
            "")
            << type;
}

TEST_F(XmlSchema, RefusesADocumentThatLacksAnAttribute) {
    const std::regex attribute(R"( (\w+)="[^"]*")");
    for (std::sregex_iterator found(DOCUMENT.begin(), DOCUMENT.end(), attribute), end; found != end;
         ++found) {
        const std::string name = (*found)[1];
        const bool isOptional = name == "key_mgmt" || name == "psk";
        const std::string without =
            DOCUMENT.substr(0, static_cast<std::size_t>(found->position())) + found->suffix().str();
        EXPECT_EQ(faultOf(without).empty(), isOptional) << name;
    }
}

TEST_F(XmlSchema, RefusesWhatNoDocumentHas) {
    const std::pair<std::string, std::string> rows[] = {
        {R"(wifiEnabled="true")", R"(wifiEnabled="yes")"},
        {R"(currentDaemonState="2")", R"(currentDaemonState="9")"},
        {R"(mode="2")", R"(mode="256")"},
        {R"(channel="0")", R"(channel="-1")"},
        {R"(strength="0")", R"(strength="4294967296")"},
        {R"(priority="0")", R"(priority="")"},
        {R"(numberSupported="1")", R"(numberSupported="2")"},
        {R"(numberConfigured="1")", R"(numberConfigured="2")"},
        {R"(<wifiSecurity type="wpa_psk")", R"(<wifiSecurity type="wpa3")"},
        {R"(<configuration type="wpa_psk")", R"(<configuration type="none")"},
        {R"(supported="true")", R"(supported="false")"},
        {R"(psk="")", R"(psk="" index="0")"},
        {R"(psk="")", R"(psk="" index="5")"},
        {R"(psk="")", R"(psk="" secret="")"},
        {R"(<wifiSecurity type="wpa_psk"/>)",
         R"(<wifiSecurity type="wpa_psk"/><wifiSecurity type="wpa"/>)"},
        {OFFER, ""},
        {CONFIGURATION, ""},
        {OFFER + CONFIGURATION, CONFIGURATION + OFFER},
        {NETWORK + OFFER, NETWORK + "<other/>" + OFFER},
    };
    for (const auto& [piece, other] : rows)
        EXPECT_NE(faultOf(with(piece, other)), "") << piece << " -> " << other;
}

TEST_F(XmlSchema, IsNotThatOfAShortDocument) {
    EXPECT_NE(faultOf(R"(<wifiHostSettings adapter="wlan0" wifiEnabled="true")"
                      R"( currentDaemonState="2" currentNetwork="" currentNetworkState="0">)"
                      R"(<wifiNetworkDatabase numberNetworks="1">)"
                      R"(<wifiNetwork ssid="home" strength="0" status="1"/>)"
                      R"(</wifiNetworkDatabase></wifiHostSettings>)"),
              "");
}

} // namespace
} // namespace test
