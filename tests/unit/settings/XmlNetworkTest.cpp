// One network in a full document.

#include "ReportedSettings.h"

#include "model/NetworkFields.h"
#include "model/WifiNetwork.h"
#include "platform/BufferedXWriter.h"
#include "platform/Crypt.h"
#include "support/FieldTable.h"
#include "support/KeyWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <regex>
#include <vector>

using namespace platwifi;
using testing::HasSubstr;
using testing::Not;

namespace test {
namespace {

constexpr bool FULL = true;
constexpr bool SHORT = false;

// How much of a network is set.
enum class Filled { NOTHING, ALL_BUT_SECRETS, ALL };

struct Type {
    const char* name;
    unsigned int protocol;
    unsigned int keyManagement;
    unsigned int pairwise;
    unsigned int group;
    const char* numbers;       // those that follow from the above
    std::vector<Field> fields; // whose attributes follow
    std::vector<Field> more = {};
};

// clang-format off
const std::vector<Field> WEP = {
    Field::WEP_KEY0, Field::WEP_KEY1, Field::WEP_KEY2, Field::WEP_KEY3, Field::WEP_INDEX,
};
const std::vector<Field> EAP = {
    Field::EAP_MODES, Field::EAP_IDENTITY, Field::EAP_ANONYMOUS_IDENTITY, Field::EAP_PASSWORD,
    Field::CA_CERTIFICATE, Field::CA_CERTIFICATE_DIR, Field::CLIENT_CERTIFICATE,
    Field::PRIVATE_KEY_FILE, Field::PRIVATE_KEY_PASSWORD, Field::PHASE1_STEP, Field::PHASE2_STEP,
    Field::CA_CERTIFICATE2, Field::CA_CERTIFICATE_DIR2, Field::CLIENT_CERTIFICATE2,
    Field::PRIVATE_KEY_FILE2, Field::PRIVATE_KEY_PASSWORD2,
};

const Type OPEN = {"none", 3, 0, PAIRWISE_NONE, GROUP_WEP104, "", {}};
const Type WPA = {"wpa", 1, KEY_MGMT_WPA_EAP, PAIRWISE_TKIP, GROUP_TKIP | GROUP_CCMP, R"( encryption="6" key_mgmt="4")", EAP};
const Type WPA_PSK = {"wpa_psk", 1, KEY_MGMT_WPA_PSK, 0, 0, R"( encryption="0" key_mgmt="2")", {Field::PSK}};
const Type WPA2_PSK = {"wpa2_psk", 2, KEY_MGMT_WPA_PSK, PAIRWISE_CCMP, GROUP_TKIP, R"( encryption="6")", {Field::PSK}};

const std::vector<Type> TYPES = {
    {"wep", 3, KEY_MGMT_NONE, PAIRWISE_TKIP, GROUP_WEP40, R"( encryption="18" key_mgmt="1")", WEP},
    {"wep", 3, 0, 0, GROUP_WEP104, R"( encryption="8" key_mgmt="0")", WEP},
    {"wep", 3, KEY_MGMT_IEEE8021X, PAIRWISE_CCMP, GROUP_TKIP | GROUP_WEP40, R"( encryption="22" key_mgmt="8")", WEP, EAP},
    {"wep", 3, KEY_MGMT_NONE | KEY_MGMT_IEEE8021X, PAIRWISE_CCMP, GROUP_CCMP | GROUP_WEP104, R"( encryption="12" key_mgmt="9")", WEP, EAP},
    WPA,
    WPA_PSK,
    {"wpa2", 2, KEY_MGMT_WPA_EAP, PAIRWISE_TKIP, GROUP_TKIP | GROUP_CCMP, R"( encryption="6" key_mgmt="4")", EAP},
    WPA2_PSK,
};

// With two methods of key management the key decides.
const Type WPA_PSK_BY_KEY = {"wpa_psk", 1, KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_EAP, 0, 0, R"( encryption="0" key_mgmt="6")", {Field::PSK}};
// clang-format on

const std::string BLANK = R"(ssid="home" bssid="" ssidBroadcasted="false" mode="2" channel="0")"
                          R"( strength="0" priority="0" status="1")";
const std::string FILLED =
    R"(ssid="home" bssid="the bssid" ssidBroadcasted="true" mode="1" channel="11")"
    R"( strength="83" priority="7" status="1")";

std::string valueOf(Field field, Filled filled) {
    const FieldRow& row = rowOf(field);
    if (field == Field::WEP_INDEX)
        return filled == Filled::NOTHING ? "1" : "3";
    if (field == Field::EAP_MODES)
        return filled == Filled::NOTHING ? "0" : "1026";
    if (filled == Filled::NOTHING || (isEnciphered(row) && filled != Filled::ALL))
        return "";
    const std::string text = std::string("the ") + row.name;
    return isEnciphered(row) ? "{" + text + "}" : text;
}

std::string attribute(const std::string& name, const std::string& value) {
    return " " + name + "=\"" + value + "\"";
}

// What the document has for a network of this type; enciphered texts stand in braces.
std::string configurationOf(const Type& type, Filled filled) {
    std::string attributes = attribute("protocol", std::to_string(type.protocol)) +
                             attribute("authentication", filled == Filled::NOTHING ? "0" : "3") +
                             type.numbers;
    for (const auto& fields : {type.fields, type.more})
        for (const Field field : fields)
            attributes += attribute(rowOf(field).attribute, valueOf(field, filled));
    return attributes;
}

// An element with one entry or none, and their number.
std::string element(const std::string& name, const std::string& count, const std::string& entry) {
    const std::string start = "      <" + name;
    if (entry.empty())
        return start + attribute(count, "0") + "/>\n";
    return start + attribute(count, "1") + ">\n        <" + entry + "/>\n      </" + name + ">\n";
}

// A document of one network with what it supports and what it is configured for.
std::string document(const std::string& description, const std::string& security = "",
                     const std::string& configuration = "") {
    return documentOf("    <wifiNetwork " + description + ">\n" +
                      element("wifiSecuritySupported", "numberSupported", security) +
                      element("wifiSecurityConfiguration", "numberConfigured", configuration) +
                      "    </wifiNetwork>\n");
}

std::string document(const Type& type, Filled filled, const std::string& configuration) {
    const std::string typed = attribute("type", type.name);
    return document(filled == Filled::NOTHING ? BLANK : FILLED, "wifiSecurity" + typed,
                    "configuration" + typed + R"( supported="true" use="true")" + configuration);
}

std::string document(const Type& type, Filled filled) {
    return document(type, filled, configurationOf(type, filled));
}

void fill(NetworkFields& fields, Filled filled) {
    if (filled == Filled::NOTHING)
        return;
    for (const FieldRow& row : fieldRows()) {
        if (isText(row) && row.field != Field::SSID)
            fields.setText(row.field, (std::string("the ") + row.name).c_str());
        if (isEnciphered(row) && filled != Filled::ALL)
            fields.setText(row.field, nullptr);
    }
    fields.setNumber(Field::SSID_BROADCASTED, 1);
    fields.setNumber(Field::NETWORK_MODE, 1);
    fields.setNumber(Field::CHANNEL, 11);
    fields.setNumber(Field::STRENGTH, 83);
    fields.setNumber(Field::PRIORITY, 7);
    fields.setNumber(Field::AUTH_ALG, 3);
    fields.setNumber(Field::WEP_INDEX, 2);
    fields.setNumber(Field::EAP_MODES, EAP_PEAP | EAP_FAST);
}

void setType(NetworkFields& fields, const Type& type) {
    fields.setNumber(Field::PROTOCOL, type.protocol);
    fields.setNumber(Field::KEY_MANAGEMENT, type.keyManagement);
    fields.setNumber(Field::PAIRWISE_CIPHERS, type.pairwise);
    fields.setNumber(Field::GROUP_CIPHERS, type.group);
}

class XmlNetwork : public testing::Test {
protected:
    ReportedSettings reported;
    NetworkFields& fields = NetworkFields::of(reported.add("home"));
};

// XML-11, XML-12, XML-13, XML-15, XML-18
TEST_F(XmlNetwork, HasTheAttributesOfItsType) {
    for (const Filled filled : {Filled::NOTHING, Filled::ALL_BUT_SECRETS}) {
        fill(fields, filled);
        for (const Type& type : TYPES) {
            setType(fields, type);
            EXPECT_EQ(reported.xml(FULL), document(type, filled));
        }
    }
}

TEST_F(XmlNetwork, WithoutProtocolHasNoSecurity) {
    EXPECT_EQ(reported.xml(FULL), document(BLANK));
    fill(fields, Filled::ALL);
    EXPECT_EQ(reported.xml(FULL), document(FILLED));
}

// XML-10
TEST_F(XmlNetwork, WithoutEncryptionHasNothingToConfigure) {
    fill(fields, Filled::ALL);
    setType(fields, OPEN);
    EXPECT_EQ(reported.xml(FULL), document(FILLED, R"(wifiSecurity type="none")"));
}

// XML-14
TEST_F(XmlNetwork, HasUnsignedNumbers) {
    fields.setNumber(Field::NETWORK_MODE, UCHAR_MAX);
    fields.setNumber(Field::CHANNEL, UINT_MAX);
    fields.setNumber(Field::STRENGTH, UINT_MAX - 1);
    fields.setNumber(Field::PRIORITY, UINT_MAX - 2);
    fields.setNumber(Field::NETWORK_STATUS, UINT_MAX - 3);
    EXPECT_EQ(reported.xml(FULL),
              document(R"(ssid="home" bssid="" ssidBroadcasted="false" mode="255")"
                       R"( channel="4294967295" strength="4294967294" priority="4294967293")"
                       R"( status="4294967292")"));
}

// XML-19
TEST_F(XmlNetwork, HasAnyTextInItsAttributes) {
    const std::string longText(1000000, 'x');
    fields.setText(Field::SSID, "<caf\xC3\xA9> & \"\xF0\x9F\x98\x80\"\t'\n");
    fields.setText(Field::BSSID, ("\xFF\x01\xC3 any" + longText).c_str());
    EXPECT_TRUE(
        reported.xml(FULL) ==
        document("ssid=\"&lt;caf\xC3\xA9&gt; &amp; &quot;\xF0\x9F\x98\x80&quot;&#9;&apos;&#10;\""
                 " bssid=\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD any" +
                 longText + BLANK.substr(BLANK.find("\" ssidBroadcasted"))));
}

// Every enciphered text of a document as what it deciphers to, in braces.
std::string deciphered(std::string text) {
    const std::regex enciphered("crypt1:[A-Za-z0-9+/=]+");
    std::smatch match;
    while (std::regex_search(text, match, enciphered)) {
        const Outcome plain = decrypted(match.str());
        EXPECT_TRUE(plain.text) << plain.message;
        text.replace(static_cast<std::size_t>(match.position()),
                     static_cast<std::size_t>(match.length()),
                     "{" + plain.text.value_or("?") + "}");
    }
    return text;
}

// A network that everything is set of.
class XmlSecrets : public KeyWorld {
protected:
    void SetUp() override {
        KeyWorld::SetUp();
        if (IsSkipped())
            return;
        reported = std::make_unique<ReportedSettings>();
        fields = &NetworkFields::of(reported->add("home"));
        fill(*fields, Filled::ALL);
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
    NetworkFields* fields = nullptr;
};

// XML-15
TEST_F(XmlSecrets, AreEncipheredForEveryType) {
    std::vector<Type> types = TYPES;
    types.push_back(WPA_PSK_BY_KEY);
    for (const Type& type : types) {
        setType(*fields, type);
        const std::string written = reported->xml(FULL);
        for (const FieldRow& row : fieldRows()) {
            if (isEnciphered(row)) {
                EXPECT_THAT(written, Not(HasSubstr(std::string("the ") + row.name)));
            }
        }
        EXPECT_EQ(deciphered(written), document(type, Filled::ALL));
    }
    EXPECT_EQ(errorId(), "");
}

// XML-15
TEST_F(XmlSecrets, AreEncipheredAnewEachTime) {
    setType(*fields, WPA2_PSK);
    const std::string first = reported->xml(FULL);
    const std::string second = reported->xml(FULL);
    EXPECT_NE(first, second);
    EXPECT_EQ(deciphered(first), deciphered(second));
}

// XML-16, XML-18
TEST_F(XmlSecrets, MayBeAnything) {
    setType(*fields, WPA2_PSK);
    for (const std::string secret : {"", "*", "<&\">", "caf\xC3\xA9", "\xFF\x01"}) {
        fields->setText(Field::PSK, "another"); // "" is stored over a text only
        fields->setText(Field::PSK, secret.c_str());
        EXPECT_EQ(deciphered(reported->xml(FULL)),
                  document(WPA2_PSK, Filled::ALL,
                           R"( protocol="2" authentication="3" encryption="6" psk="{)" + secret +
                               R"(}")"));
    }
}

// XML-17
TEST_F(XmlSecrets, ThatCannotBeEncipheredAreEmptyAndReported) {
    setType(*fields, WPA);
    putKey(std::string(32, 'k'));
    setKeyMode(0644);
    const std::string expected = document(WPA, Filled::ALL_BUT_SECRETS);
    EXPECT_EQ(reported->xml(FULL), expected);
    EXPECT_EQ(errorId(), "crypt.key-exposed");

    BufferedXWriter out;
    EXPECT_TRUE(reported->settings->getWifiHostSettingsXML(&out, nullptr, FULL));
    EXPECT_EQ(out.text(), expected) << "without an error handler";
}

TEST_F(XmlSecrets, FailOneByOne) {
    setType(*fields, WPA);
    fields->setText(Field::EAP_PASSWORD, std::string(Crypt::MAXIMUM_LENGTH + 1, 'x').c_str());
    const std::string others = std::regex_replace(configurationOf(WPA, Filled::ALL),
                                                  std::regex(R"(\{the EAPPassword\})"), "");
    EXPECT_EQ(deciphered(reported->xml(FULL)), document(WPA, Filled::ALL, others));
    EXPECT_EQ(errorId(), "crypt.too-long");
}

TEST_F(XmlSecrets, AreNotTouchedByAShortDocument) {
    setType(*fields, WPA_PSK);
    putKey("damaged");
    EXPECT_THAT(reported->xml(SHORT), HasSubstr(R"(ssid="home" strength="83" status="1"/>)"));
    EXPECT_EQ(errorId(), "");
}

} // namespace
} // namespace test
