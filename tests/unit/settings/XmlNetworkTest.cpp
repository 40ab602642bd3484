// What a full document tells of one network. Secrets are not set here: see XmlSecretsTest.cpp.

#include "ReportedSettings.h"
#include "model/WifiNetwork.h"

#include <gtest/gtest.h>

#include <climits>

namespace test {
namespace {

constexpr bool FULL = true;

class XmlNetwork : public testing::Test {
protected:
    ReportedSettings reported;
    WifiNetwork& network = reported.add("home");

    // Everything but the secrets that would be enciphered.
    void fillWithoutSecrets() {
        fill(network);
        network.setPsk(nullptr);
        network.setEAPPassword(nullptr);
        network.setPrivateKeyPassword(nullptr);
        network.setPrivateKeyPassword2(nullptr);
    }

    void setCiphers(unsigned int pairwise, unsigned int group) {
        network.setPairwiseCiphers(pairwise);
        network.setGroupCiphers(group);
    }
};

TEST_F(XmlNetwork, WithoutProtocolHasNoSecurity) {
    EXPECT_EQ(reported.xml(FULL),
              documentOf(R"(    <wifiNetwork ssid="home" bssid="" ssidBroadcasted="false" mode="2")"
                         R"( channel="0" strength="0" priority="0" status="1">
      <wifiSecuritySupported numberSupported="0"/>
      <wifiSecurityConfiguration numberConfigured="0"/>
    </wifiNetwork>
)"));
}

TEST_F(XmlNetwork, IsDescribed) {
    fill(network);
    EXPECT_EQ(reported.xml(FULL),
              documentOf(R"(    <wifiNetwork ssid="home" bssid="the bssid" ssidBroadcasted="true")"
                         R"( mode="1" channel="11" strength="83" priority="7" status="1">
      <wifiSecuritySupported numberSupported="0"/>
      <wifiSecurityConfiguration numberConfigured="0"/>
    </wifiNetwork>
)"));
}

// XML-14
TEST_F(XmlNetwork, HasUnsignedNumbers) {
    network.setNetworkMode(UCHAR_MAX);
    network.setChannel(UINT_MAX);
    network.setStrength(UINT_MAX - 1);
    network.setPriority(UINT_MAX - 2);
    network.setNetworkStatus(UINT_MAX - 3);
    EXPECT_EQ(
        reported.xml(FULL),
        documentOf(R"(    <wifiNetwork ssid="home" bssid="" ssidBroadcasted="false" mode="255")"
                   R"( channel="4294967295" strength="4294967294" priority="4294967293")"
                   R"( status="4294967292">
      <wifiSecuritySupported numberSupported="0"/>
      <wifiSecurityConfiguration numberConfigured="0"/>
    </wifiNetwork>
)"));
}

// XML-10
TEST_F(XmlNetwork, WithoutEncryptionIsOfferedOpenWithNothingToConfigure) {
    fill(network);
    network.setProtocol(PROTOCOL_WPA | PROTOCOL_RSN);
    setCiphers(PAIRWISE_NONE, GROUP_WEP104);
    EXPECT_EQ(reported.xml(FULL),
              documentOf(R"(    <wifiNetwork ssid="home" bssid="the bssid" ssidBroadcasted="true")"
                         R"( mode="1" channel="11" strength="83" priority="7" status="1">
      <wifiSecuritySupported numberSupported="1">
        <wifiSecurity type="none"/>
      </wifiSecuritySupported>
      <wifiSecurityConfiguration numberConfigured="0"/>
    </wifiNetwork>
)"));
}

// XML-15
TEST_F(XmlNetwork, WithWepTellsItsKeysInPlain) {
    fill(network);
    network.setProtocol(PROTOCOL_WPA | PROTOCOL_RSN);
    network.setKeyManagement(KEY_MGMT_NONE);
    setCiphers(PAIRWISE_TKIP, GROUP_WEP40);
    EXPECT_EQ(reported.xml(FULL),
              documentOf(R"(    <wifiNetwork ssid="home" bssid="the bssid" ssidBroadcasted="true")"
                         R"( mode="1" channel="11" strength="83" priority="7" status="1">
      <wifiSecuritySupported numberSupported="1">
        <wifiSecurity type="wep"/>
      </wifiSecuritySupported>
      <wifiSecurityConfiguration numberConfigured="1">
        <configuration type="wep" supported="true" use="true" protocol="3" authentication="3")"
                         R"( encryption="18" key_mgmt="1" key1="the first key")"
                         R"( key2="the second key" key3="the third key" key4="the fourth key")"
                         R"( index="3"/>
      </wifiSecurityConfiguration>
    </wifiNetwork>
)"));
}

// XML-13
TEST_F(XmlNetwork, WithWepAndNothingSetCountsItsKeysFromOne) {
    network.setProtocol(PROTOCOL_WPA | PROTOCOL_RSN);
    setCiphers(0, GROUP_WEP104);
    EXPECT_EQ(reported.xml(FULL),
              documentOf(R"(    <wifiNetwork ssid="home" bssid="" ssidBroadcasted="false" mode="2")"
                         R"( channel="0" strength="0" priority="0" status="1">
      <wifiSecuritySupported numberSupported="1">
        <wifiSecurity type="wep"/>
      </wifiSecuritySupported>
      <wifiSecurityConfiguration numberConfigured="1">
        <configuration type="wep" supported="true" use="true" protocol="3" authentication="0")"
                         R"( encryption="8" key_mgmt="0" key1="" key2="" key3="" key4="" index="1"/>
      </wifiSecurityConfiguration>
    </wifiNetwork>
)"));
}

TEST_F(XmlNetwork, WithWepKeysThatAreAgreedOnTellsHow) {
    fillWithoutSecrets();
    network.setProtocol(PROTOCOL_WPA | PROTOCOL_RSN);
    network.setKeyManagement(KEY_MGMT_NONE | KEY_MGMT_IEEE8021X);
    setCiphers(PAIRWISE_CCMP, GROUP_CCMP | GROUP_WEP104);
    EXPECT_EQ(reported.xml(FULL),
              documentOf(R"(    <wifiNetwork ssid="home" bssid="the bssid" ssidBroadcasted="true")"
                         R"( mode="1" channel="11" strength="83" priority="7" status="1">
      <wifiSecuritySupported numberSupported="1">
        <wifiSecurity type="wep"/>
      </wifiSecuritySupported>
      <wifiSecurityConfiguration numberConfigured="1">
        <configuration type="wep" supported="true" use="true" protocol="3" authentication="3")"
                         R"( encryption="12" key_mgmt="9" key1="the first key")"
                         R"( key2="the second key" key3="the third key" key4="the fourth key")"
                         R"( index="3" eap="1026" eapIdentity="the identity")"
                         R"( eapAnonymousIdentity="the anonymous identity" eapPassword="")"
                         R"( CACertificateFile="the ca file" CACertificateDir="the ca folder")"
                         R"( clientCertificate="the client file" privateKeyFile="the key file")"
                         R"( privateKeyPassword="" phase1="the phase1" phase2="the phase2")"
                         R"( CACertificateFile2="the inner ca file")"
                         R"( CACertificateDir2="the inner ca folder")"
                         R"( clientCertificate2="the inner client file")"
                         R"( privateKeyFile2="the inner key file" privateKeyPassword2=""/>
      </wifiSecurityConfiguration>
    </wifiNetwork>
)"));
}

struct Enterprise {
    unsigned int protocol;
    const char* type;
    const char* number;
};

const Enterprise ENTERPRISE[] = {{PROTOCOL_WPA, "wpa", "1"}, {PROTOCOL_RSN, "wpa2", "2"}};

// XML-12
TEST_F(XmlNetwork, WithWpaAndNothingSetHasEmptyAttributes) {
    network.setKeyManagement(KEY_MGMT_WPA_EAP);
    setCiphers(PAIRWISE_TKIP, GROUP_TKIP | GROUP_CCMP);
    for (const Enterprise& row : ENTERPRISE) {
        network.setProtocol(row.protocol);
        EXPECT_EQ(
            reported.xml(FULL),
            documentOf(R"(    <wifiNetwork ssid="home" bssid="" ssidBroadcasted="false" mode="2")"
                       R"( channel="0" strength="0" priority="0" status="1">
      <wifiSecuritySupported numberSupported="1">
        <wifiSecurity type=")" +
                       std::string(row.type) + R"("/>
      </wifiSecuritySupported>
      <wifiSecurityConfiguration numberConfigured="1">
        <configuration type=")" +
                       row.type + R"(" supported="true" use="true" protocol=")" + row.number +
                       R"(" authentication="0" encryption="6" key_mgmt="4" eap="0")"
                       R"( eapIdentity="" eapAnonymousIdentity="" eapPassword="")"
                       R"( CACertificateFile="" CACertificateDir="" clientCertificate="")"
                       R"( privateKeyFile="" privateKeyPassword="" phase1="" phase2="")"
                       R"( CACertificateFile2="" CACertificateDir2="" clientCertificate2="")"
                       R"( privateKeyFile2="" privateKeyPassword2=""/>
      </wifiSecurityConfiguration>
    </wifiNetwork>
)"));
    }
}

// XML-18
TEST_F(XmlNetwork, WithAPreSharedKeyThatIsNotSetHasAnEmptyOne) {
    network.setKeyManagement(KEY_MGMT_WPA_PSK);
    network.setProtocol(PROTOCOL_WPA);
    EXPECT_EQ(reported.xml(FULL),
              documentOf(R"(    <wifiNetwork ssid="home" bssid="" ssidBroadcasted="false" mode="2")"
                         R"( channel="0" strength="0" priority="0" status="1">
      <wifiSecuritySupported numberSupported="1">
        <wifiSecurity type="wpa_psk"/>
      </wifiSecuritySupported>
      <wifiSecurityConfiguration numberConfigured="1">
        <configuration type="wpa_psk" supported="true" use="true" protocol="1")"
                         R"( authentication="0" encryption="0" key_mgmt="2" psk=""/>
      </wifiSecurityConfiguration>
    </wifiNetwork>
)"));
}

// XML-11
TEST_F(XmlNetwork, WithAPreSharedKeyForWpa2DoesNotTellItsKeyManagement) {
    network.setKeyManagement(KEY_MGMT_WPA_PSK);
    network.setProtocol(PROTOCOL_RSN);
    EXPECT_EQ(reported.xml(FULL),
              documentOf(R"(    <wifiNetwork ssid="home" bssid="" ssidBroadcasted="false" mode="2")"
                         R"( channel="0" strength="0" priority="0" status="1">
      <wifiSecuritySupported numberSupported="1">
        <wifiSecurity type="wpa2_psk"/>
      </wifiSecuritySupported>
      <wifiSecurityConfiguration numberConfigured="1">
        <configuration type="wpa2_psk" supported="true" use="true" protocol="2")"
                         R"( authentication="0" encryption="0" psk=""/>
      </wifiSecurityConfiguration>
    </wifiNetwork>
)"));
}

// XML-19
TEST_F(XmlNetwork, HasAnyTextInItsAttributes) {
    network.setSsid("<caf\xC3\xA9> & \"\xF0\x9F\x98\x80\"\t'\n");
    network.setBssid("\xFF\x01\xC3 any");
    EXPECT_EQ(
        reported.xml(FULL),
        documentOf("    <wifiNetwork ssid=\"&lt;caf\xC3\xA9&gt; &amp; &quot;\xF0\x9F\x98\x80&quot;"
                   "&#9;&apos;&#10;\" bssid=\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD any\""
                   R"( ssidBroadcasted="false" mode="2" channel="0" strength="0" priority="0")"
                   R"( status="1">
      <wifiSecuritySupported numberSupported="0"/>
      <wifiSecurityConfiguration numberConfigured="0"/>
    </wifiNetwork>
)"));
}

TEST_F(XmlNetwork, HasTextOfAnyLength) {
    const std::string longText(1000000, 'x');
    network.setBssid(longText.c_str());
    EXPECT_TRUE(reported.xml(FULL) ==
                documentOf(R"(    <wifiNetwork ssid="home" bssid=")" + longText +
                           R"(" ssidBroadcasted="false" mode="2" channel="0" strength="0")"
                           R"( priority="0" status="1">
      <wifiSecuritySupported numberSupported="0"/>
      <wifiSecurityConfiguration numberConfigured="0"/>
    </wifiNetwork>
)"));
}

} // namespace
} // namespace test
