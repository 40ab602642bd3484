// Secrets in a full document.

#include "ReportedSettings.h"
#include "model/WifiNetwork.h"
#include "platform/BufferedXWriter.h"
#include "platform/Crypt.h"

#include "support/KeyWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <regex>

using testing::HasSubstr;
using testing::Not;

namespace test {
namespace {

constexpr bool FULL = true;

// Every enciphered text of a document as what it deciphers to, in braces.
std::string deciphered(std::string document) {
    const std::regex enciphered("crypt1:[A-Za-z0-9+/=]+");
    std::smatch match;
    while (std::regex_search(document, match, enciphered)) {
        const Outcome plain = decrypted(match.str());
        EXPECT_TRUE(plain.text) << plain.message;
        document.replace(static_cast<std::size_t>(match.position()),
                         static_cast<std::size_t>(match.length()),
                         "{" + plain.text.value_or("?") + "}");
    }
    return document;
}

// A network that everything is set of, with this configuration.
std::string networkOf(const std::string& type, const std::string& attributes) {
    return R"(    <wifiNetwork ssid="home" bssid="the bssid" ssidBroadcasted="true")"
           R"( mode="1" channel="11" strength="83" priority="7" status="1">
      <wifiSecuritySupported numberSupported="1">
        <wifiSecurity type=")" +
           type + R"("/>
      </wifiSecuritySupported>
      <wifiSecurityConfiguration numberConfigured="1">
        <configuration type=")" +
           type + R"(" supported="true" use="true")" + attributes + R"(/>
      </wifiSecurityConfiguration>
    </wifiNetwork>
)";
}

const std::string EAP_ATTRIBUTES =
    R"( eap="1026" eapIdentity="the identity")"
    R"( eapAnonymousIdentity="the anonymous identity" eapPassword="{the password}")"
    R"( CACertificateFile="the ca file" CACertificateDir="the ca folder")"
    R"( clientCertificate="the client file" privateKeyFile="the key file")"
    R"( privateKeyPassword="{the key password}" phase1="the phase1" phase2="the phase2")"
    R"( CACertificateFile2="the inner ca file" CACertificateDir2="the inner ca folder")"
    R"( clientCertificate2="the inner client file" privateKeyFile2="the inner key file")"
    R"( privateKeyPassword2="{the inner key password}")";

class XmlSecrets : public KeyWorld {
protected:
    void SetUp() override {
        KeyWorld::SetUp();
        if (IsSkipped())
            return;
        reported = std::make_unique<ReportedSettings>();
        network = &reported->add("home");
        fill(*network);
        network->setPairwiseCiphers(PAIRWISE_CCMP);
        network->setGroupCiphers(GROUP_TKIP);
    }

    void TearDown() override {
        reported.reset();
        KeyWorld::TearDown();
    }

    std::string errorId() const {
        const MessageBundle* const error = reported->errors.savedError();
        return error ? error->id() : "";
    }

    std::unique_ptr<ReportedSettings> reported;
    WifiNetwork* network = nullptr;
};

TEST_F(XmlSecrets, AreEncipheredForEveryType) {
    struct Row {
        unsigned int protocol;
        unsigned int keyManagement;
        unsigned int group;
        const char* type;
        std::string attributes;
    };
    const Row rows[] = {
        {PROTOCOL_WPA | PROTOCOL_RSN, KEY_MGMT_IEEE8021X, GROUP_TKIP | GROUP_WEP40, "wep",
         R"( protocol="3" authentication="3" encryption="22" key_mgmt="8" key1="the first key")"
         R"( key2="the second key" key3="the third key" key4="the fourth key" index="3")" +
             EAP_ATTRIBUTES},
        {PROTOCOL_WPA, KEY_MGMT_WPA_EAP, GROUP_TKIP, "wpa",
         R"( protocol="1" authentication="3" encryption="6" key_mgmt="4")" + EAP_ATTRIBUTES},
        {PROTOCOL_WPA, KEY_MGMT_WPA_PSK, GROUP_TKIP, "wpa_psk",
         R"( protocol="1" authentication="3" encryption="6" key_mgmt="2" psk="{the psk}")"},
        {PROTOCOL_WPA, KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_EAP, GROUP_TKIP, "wpa_psk",
         R"( protocol="1" authentication="3" encryption="6" key_mgmt="6" psk="{the psk}")"},
        {PROTOCOL_RSN, KEY_MGMT_WPA_EAP, GROUP_TKIP, "wpa2",
         R"( protocol="2" authentication="3" encryption="6" key_mgmt="4")" + EAP_ATTRIBUTES},
        {PROTOCOL_RSN, KEY_MGMT_WPA_PSK, GROUP_TKIP, "wpa2_psk",
         R"( protocol="2" authentication="3" encryption="6" psk="{the psk}")"},
    };
    for (const Row& row : rows) {
        network->setProtocol(row.protocol);
        network->setKeyManagement(row.keyManagement);
        network->setGroupCiphers(row.group);
        const std::string document = reported->xml(FULL);
        for (const char* const secret :
             {"the psk", "the password", "the key password", "the inner key password"})
            EXPECT_THAT(document, Not(HasSubstr(secret)));
        EXPECT_EQ(deciphered(document), documentOf(networkOf(row.type, row.attributes)));
    }
    EXPECT_EQ(errorId(), "");
}

// XML-15
TEST_F(XmlSecrets, AreEncipheredAnewEachTime) {
    network->setProtocol(PROTOCOL_RSN);
    network->setKeyManagement(KEY_MGMT_WPA_PSK);
    const std::string first = reported->xml(FULL);
    const std::string second = reported->xml(FULL);
    EXPECT_NE(first, second);
    EXPECT_EQ(deciphered(first), deciphered(second));
}

// XML-16, XML-18
TEST_F(XmlSecrets, MayBeAnything) {
    network->setProtocol(PROTOCOL_RSN);
    network->setKeyManagement(KEY_MGMT_WPA_PSK);
    for (const std::string secret : {"", "*", "<&\">", "caf\xC3\xA9", "\xFF\x01"}) {
        network->setPsk("another");
        network->setPsk(secret.c_str());
        EXPECT_EQ(deciphered(reported->xml(FULL)),
                  documentOf(networkOf("wpa2_psk", R"( protocol="2" authentication="3")"
                                                   R"( encryption="6" psk="{)" +
                                                       secret + R"(}")")));
    }
}

// XML-17
TEST_F(XmlSecrets, ThatCannotBeEncipheredAreEmptyAndReported) {
    network->setProtocol(PROTOCOL_WPA);
    network->setKeyManagement(KEY_MGMT_WPA_EAP);
    putKey(std::string(32, 'k'));
    setKeyMode(0644);
    const std::string withoutSecrets =
        std::regex_replace(EAP_ATTRIBUTES, std::regex(R"(\{[^}]*\})"), "");
    const std::string expected =
        documentOf(networkOf("wpa", R"( protocol="1" authentication="3" encryption="6")"
                                    R"( key_mgmt="4")" +
                                        withoutSecrets));
    EXPECT_EQ(reported->xml(FULL), expected);
    EXPECT_EQ(errorId(), "crypt.key-exposed");

    BufferedXWriter out;
    EXPECT_TRUE(reported->settings->getWifiHostSettingsXML(&out, nullptr, FULL));
    EXPECT_EQ(out.text(), expected) << "nobody to report to";
}

TEST_F(XmlSecrets, FailOneByOne) {
    network->setProtocol(PROTOCOL_WPA);
    network->setKeyManagement(KEY_MGMT_WPA_EAP);
    network->setEAPPassword(std::string(Crypt::MAXIMUM_LENGTH + 1, 'x').c_str());
    const std::string others =
        std::regex_replace(EAP_ATTRIBUTES, std::regex(R"(\{the password\})"), "");
    EXPECT_EQ(deciphered(reported->xml(FULL)),
              documentOf(networkOf("wpa", R"( protocol="1" authentication="3" encryption="6")"
                                          R"( key_mgmt="4")" +
                                              others)));
    EXPECT_EQ(errorId(), "crypt.too-long");
}

TEST_F(XmlSecrets, AreNotTouchedByAShortDocument) {
    network->setProtocol(PROTOCOL_WPA);
    network->setKeyManagement(KEY_MGMT_WPA_PSK);
    putKey("damaged");
    EXPECT_THAT(reported->xml(!FULL), HasSubstr(R"(ssid="home" strength="83" status="1"/>)"));
    EXPECT_EQ(errorId(), "");
}

} // namespace
} // namespace test
