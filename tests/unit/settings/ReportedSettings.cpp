#include "ReportedSettings.h"

#include "XmlReader.h"
#include "platform/BufferedXWriter.h"

#include <gtest/gtest.h>

namespace test {

const std::string ReportedSettings::SUPPLICANT = "1 init\n217 wpa_supplicant -iwlan0\n";

ReportedSettings::ReportedSettings() {
    settings = &loaded.load("");
    answerStatus("wpa_state=INACTIVE\n");
}

void ReportedSettings::fail() {
    settings = &loaded.fail();
}

void ReportedSettings::answerStatus(const std::string& status, const std::string& processes) {
    loaded.standIn.reset();
    loaded.standIn.on({"-iwlan0", "status"}).prints(status);
    loaded.standIn.on({"-iwlan0", "arg"}).prints(processes);
}

// Another client creates it: script and calls stay as they are.
WifiNetwork& ReportedSettings::add(const char* ssid) {
    StandIn client;
    client.on({"-iwlan0", "add_network"}).prints(std::to_string(m_added++) + "\n");
    client.on({"*"}).prints("OK\n");
    EXPECT_TRUE(settings->addNetwork("wlan0", ssid));
    WifiNetwork& network = *LoadedSettings::network(ssid);
    network.setNetworkStatus(NETWORK_STATUS_ENABLED);
    return network;
}

std::string ReportedSettings::xml(bool full) {
    BufferedXWriter out;
    EXPECT_TRUE(settings->getWifiHostSettingsXML(&out, &errors, full));
    EXPECT_EQ(faultOf(out.text(), full ? CheckedBy::SCHEMA : CheckedBy::SYNTAX), "") << out.text();
    return out.text();
}

std::string ReportedSettings::dump() {
    return LoadedSettings::dump();
}

void ReportedSettings::loadForRefresh(const std::string& networks) {
    loaded.refreshAll(networks);
    answerStatus("wpa_state=INACTIVE\n");
}

void fill(WifiNetwork& network) {
    network.setBssid("the bssid");
    network.setSsidBroadcasted(true);
    network.setNetworkMode(NETWORK_MODE_ADHOC);
    network.setChannel(11);
    network.setStrength(83);
    network.setPriority(7);
    network.setAuthAlg(AUTH_ALG_LEAP);
    network.setWepKey(0, "the first key");
    network.setWepKey(1, "the second key");
    network.setWepKey(2, "the third key");
    network.setWepKey(3, "the fourth key");
    network.setWepIndex(2);
    network.setPsk("the psk");
    network.setEapModes(EAP_PEAP | EAP_FAST);
    network.setEAPIdentity("the identity");
    network.setEAPAnonymousIdentity("the anonymous identity");
    network.setEAPPassword("the password");
    network.setCACertificate("the ca file");
    network.setCACertificateDir("the ca folder");
    network.setClientCertificate("the client file");
    network.setPrivateKeyFile("the key file");
    network.setPrivateKeyPassword("the key password");
    network.setPhase1Step("the phase1");
    network.setPhase2Step("the phase2");
    network.setCACertificate2("the inner ca file");
    network.setCACertificateDir2("the inner ca folder");
    network.setClientCertificate2("the inner client file");
    network.setPrivateKeyFile2("the inner key file");
    network.setPrivateKeyPassword2("the inner key password");
}

std::string documentOf(const std::string& network) {
    return R"(<wifiHostSettings adapter="wlan0" wifiEnabled="true" currentDaemonState="2")"
           R"( currentNetwork="" currentNetworkState="0">
  <wifiNetworkDatabase numberNetworks="1">
)" + network +
           R"(  </wifiNetworkDatabase>
</wifiHostSettings>
)";
}

} // namespace test
