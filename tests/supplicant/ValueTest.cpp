// Setting a field of a network: every key of the client, with and without quotes.

#include "SupplicantTest.h"
#include "support/FieldTable.h"

#include <set>

using test::openNetworks;
using test::WLAN;
using testing::Contains;
using testing::ElementsAre;

namespace {

const std::string PASSPHRASE_63(63, 'p');
const std::string HEX_10 = "0123456789";
const std::string HEX_26 = "0123456789abcdef0123456789";
const std::string HEX_64 = HEX_26 + HEX_26 + "abcdef012345";

enum class Shown { Openly, AsStar };

struct Value {
    const char* name;
    const char* key;
    std::string given;
    std::string stored; // as the supplicant writes it into its file
    Shown shown;
};

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

std::string unquoted(const std::string& text) {
    return text[0] == '"' ? text.substr(1, text.size() - 2) : text;
}

Value text(const char* key, const std::string& value) {
    return {key, key, value, quoted(value), Shown::Openly};
}

Value secretText(const char* name, const char* key, const std::string& value) {
    return {name, key, value, quoted(value), Shown::AsStar};
}

Value secretDigits(const char* name, const char* key, const std::string& value) {
    return {name, key, value, value, Shown::AsStar};
}

Value word(const char* key, const std::string& value) {
    return {key, key, value, value, Shown::Openly};
}

const Value VALUES[] = {
    text("ssid", "home sweet home"),
    {"QuotedByTheCaller", "ssid", quoted("home"), quoted("home"), Shown::Openly},
    secretText("psk", "psk", "correct horse battery"),
    secretText("PskOf8", "psk", "12345678"),
    secretText("PskOf63", "psk", PASSPHRASE_63),
    secretDigits("PskOf64HexDigits", "psk", HEX_64),
    secretText("WepKeyOf5", "wep_key0", "abcde"),
    secretText("WepKeyOf13", "wep_key1", "abcdefghijklm"),
    secretDigits("WepKeyOf10HexDigits", "wep_key2", HEX_10),
    secretDigits("WepKeyOf26HexDigits", "wep_key3", HEX_26),
    text("identity", "bob@example.org"),
    text("anonymous_identity", "anonymous"),
    secretText("password", "password", "secret \"word\" \\x"),
    text("ca_cert", "/etc/ssl/ca.pem"),
    text("ca_path", "/etc/ssl/certs"),
    text("client_cert", "/etc/ssl/client.pem"),
    text("private_key", "/etc/ssl/client.key"),
    secretText("private_key_passwd", "private_key_passwd", "keypass"),
    text("phase1", "peapver=0 peaplabel=0"),
    text("phase2", "auth=MSCHAPV2"),
    text("ca_cert2", "/etc/ssl/ca2.pem"),
    text("ca_path2", "/etc/ssl/certs2"),
    text("client_cert2", "/etc/ssl/client2.pem"),
    text("private_key2", "/etc/ssl/client2.key"),
    secretText("private_key2_passwd", "private_key2_passwd", "keypass2"),
    word("key_mgmt", "WPA-EAP IEEE8021X"),
    word("proto", "RSN"),
    word("pairwise", "CCMP"),
    word("group", "TKIP"),
    word("eap", "TTLS PEAP TLS"),
    word("auth_alg", "OPEN SHARED"),
    word("mode", "1"),
    word("bssid", "02:11:22:33:44:55"),
    word("disabled", "1"),
    word("scan_ssid", "1"),
    word("priority", "5"),
    word("wep_tx_keyidx", "2"),
};

// LOAD-15
TEST(NetworkValues, IncludeEveryKeyThatTheSupplicantKnows) {
    std::set<std::string> missing;
    for (const test::FieldRow& row : test::fieldRows()) {
        if (row.key)
            missing.insert(row.key);
    }
    for (const Value& value : VALUES)
        missing.erase(value.key);
    EXPECT_THAT(missing, ElementsAre("private_key_passwd2"));
}

class NetworkValue : public test::SharedSupplicantTest, public testing::WithParamInterface<Value> {
protected:
    static std::string shown(const std::string& value) {
        return GetParam().shown == Shown::AsStar ? "*" : value;
    }

    static std::string read() {
        char value[128] = "unread";
        EXPECT_TRUE(util().getNetworkValue(WLAN, 0, GetParam().key, value, sizeof(value)));
        return value;
    }
};

TEST_P(NetworkValue, IsSetStoredAndReadBack) {
    const std::string key = GetParam().key;
    supplicant.reload(openNetworks({"net"}));
    ASSERT_TRUE(util().setNetworkValue(WLAN, 0, key.c_str(), GetParam().given.c_str()));
    EXPECT_THAT(supplicant.ask("get_network 0 " + key), ElementsAre(shown(GetParam().stored)));
    EXPECT_EQ(read(), shown(unquoted(GetParam().stored))) << "without quotes and secrets";
    ASSERT_THAT(supplicant.ask("save_config"), ElementsAre("OK"));
    EXPECT_THAT(supplicant.file(), Contains("\t" + key + "=" + GetParam().stored));
}

INSTANTIATE_TEST_SUITE_P(Supplicant, NetworkValue, testing::ValuesIn(VALUES),
                         [](const auto& value) { return value.param.name; });

} // namespace
