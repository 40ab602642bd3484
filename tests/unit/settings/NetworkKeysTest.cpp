#include "settings/replies/NetworkKeys.h"

#include "model/WifiNetwork.h"
#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

using namespace platwifi;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

namespace {

using Texts = std::vector<std::string>;
using Values = std::map<std::string, std::string>;

// A supplicant that has these values, and what it was asked.
class Asked {
public:
    explicit Asked(Values values) : m_values(std::move(values)) {}

    const char* operator()(const std::string& key) {
        keys.push_back(key);
        const auto found = m_values.find(key);
        return found == m_values.end() ? nullptr : found->second.c_str();
    }

    Texts keys;

private:
    Values m_values;
};

Texts keysAskedFor(const Values& values) {
    Asked asked(values);
    WifiNetwork network;
    readNetworkKeys(network, std::ref(asked));
    return asked.keys;
}

// The fields that a network has with these values and not without any, by name.
Texts changes(const Values& values) {
    WifiNetwork without;
    readNetworkKeys(without, Asked({}));
    WifiNetwork with;
    readNetworkKeys(with, Asked(values));
    const Texts before = test::valuesOf(without);
    Texts after = test::valuesOf(with);
    const auto isOld = [&](const std::string& value) {
        return std::find(before.begin(), before.end(), value) != before.end();
    };
    after.erase(std::remove_if(after.begin(), after.end(), isOld), after.end());
    return after;
}

const Texts KEYS = {
    "disabled",
    "bssid",
    "mode",
    "priority",
    "key_mgmt",
    "psk",
    "pairwise",
    "group",
    "proto",
    "eap",
    "auth_alg",
    "scan_ssid",
    "identity",
    "anonymous_identity",
    "password",
    "private_key_passwd",
    "ca_cert",
    "ca_path",
    "client_cert",
    "private_key",
    "phase1",
    "phase2",
    "private_key_passwd2",
    "ca_cert2",
    "ca_path2",
    "client_cert2",
    "private_key2",
};

Texts keysWith(const Texts& wepKeys) {
    Texts keys = KEYS;
    keys.insert(std::find(keys.begin(), keys.end(), "scan_ssid"), wepKeys.begin(), wepKeys.end());
    return keys;
}

// LOAD-15
TEST(NetworkKeys, AreAskedForInOrder) {
    EXPECT_THAT(keysAskedFor({}), ElementsAreArray(KEYS));
    EXPECT_THAT(keysAskedFor({{"key_mgmt", "WPA-PSK"}}), ElementsAreArray(KEYS));
}

// LOAD-17
TEST(NetworkKeys, OfWepAreAskedForWhereTheKeyManagementKnowsThem) {
    const Texts index = {"wep_tx_keyidx"};
    const Texts all = {"wep_tx_keyidx", "wep_key0", "wep_key1", "wep_key2", "wep_key3"};
    for (const char* management : {"NONE", "IEEE8021X"}) {
        EXPECT_THAT(keysAskedFor({{"key_mgmt", management}, {"wep_key0", "k"}}),
                    ElementsAreArray(keysWith(index)))
            << "without an index there are no keys";
        EXPECT_THAT(keysAskedFor({{"key_mgmt", management}, {"wep_tx_keyidx", "0"}}),
                    ElementsAreArray(keysWith(all)));
    }
    for (const char* management : {"WPA-NONE", "WPA-EAP", "WPA-PSK", "SAE", ""}) {
        EXPECT_THAT(keysAskedFor({{"key_mgmt", management}, {"wep_tx_keyidx", "0"}}),
                    ElementsAreArray(KEYS))
            << management;
    }
}

// LOAD-10
TEST(NetworkKeys, WithoutValuesLeaveWhatTheSupplicantTakesThen) {
    WifiNetwork untouched;
    WifiNetwork network;
    readNetworkKeys(network, Asked({}));
    untouched.setBssid("00:00:00:00:00:00");
    untouched.setKeyManagement(6);
    untouched.setPairwiseCiphers(6);
    untouched.setGroupCiphers(30);
    untouched.setProtocol(3);
    EXPECT_THAT(test::valuesOf(network), ElementsAreArray(test::valuesOf(untouched)));
}

// What was there before stays where there is no value, but for the four sets and the BSSID.
// LOAD-10
TEST(NetworkKeys, WithoutValuesChangeNothingElse) {
    WifiNetwork network;
    for (const test::TextRow& row : test::textRows())
        (network.*row.set)("before");
    for (const test::NumberRow& row : test::numberRows())
        (network.*row.set)(77);
    network.setNetworkStatus(NETWORK_STATUS_CONNECTING);
    network.setNetworkMode(1);
    network.setSsidBroadcasted(true);
    Texts expected = test::valuesOf(network);
    for (std::string& value : expected) {
        if (value == "bssid=before")
            value = "bssid=00:00:00:00:00:00";
        else if (value == "keyManagement=77" || value == "pairwiseCiphers=77")
            value.replace(value.size() - 2, 2, "6");
        else if (value == "groupCiphers=77")
            value = "groupCiphers=30";
        else if (value == "protocol=77")
            value = "protocol=3";
    }
    readNetworkKeys(network, Asked({}));
    EXPECT_THAT(test::valuesOf(network), ElementsAreArray(expected));
}

struct Row {
    Values values;
    Texts fields;
};

// LOAD-13
TEST(NetworkKeys, FillOneFieldEach) {
    const std::string longest(127, 'v');
    const Row rows[] = {
        {{{"disabled", "1"}}, {"networkStatus=5"}},
        {{{"disabled", "2"}}, {"networkStatus=5"}},
        {{{"disabled", "-1"}}, {"networkStatus=5"}},
        {{{"disabled", "0"}}, {}},
        {{{"disabled", "yes"}}, {}},
        {{{"bssid", "02:11:22:33:44:55"}}, {"bssid=02:11:22:33:44:55"}},
        {{{"bssid", "any"}}, {"bssid=any"}},
        {{{"bssid", ""}}, {"bssid=null"}},
        {{{"mode", "0"}}, {"networkMode=0"}},
        {{{"mode", "1"}}, {"networkMode=1"}},
        {{{"mode", "258"}}, {}}, // 2 in 8 bits, as it was
        {{{"mode", "257"}}, {"networkMode=1"}},
        {{{"mode", "managed"}}, {"networkMode=0"}},
        {{{"priority", "7"}}, {"priority=7"}},
        {{{"priority", "-1"}}, {"priority=4294967295"}},
        {{{"priority", "99999999999"}}, {"priority=2147483647"}},
        {{{"key_mgmt", "WPA-NONE"}}, {"keyManagement=16"}},
        {{{"key_mgmt", "NONE"}}, {"keyManagement=1"}},
        {{{"key_mgmt", "WPA-PSK WPA-EAP"}}, {"keyManagement=4"}},
        {{{"key_mgmt", "WPA-PSK"}}, {"keyManagement=2"}},
        {{{"key_mgmt", "IEEE8021X"}}, {"keyManagement=8"}},
        {{{"key_mgmt", "SAE"}}, {"keyManagement=0"}},
        {{{"psk", "*"}}, {"psk=*"}},
        {{{"psk", longest}}, {"psk=" + longest}},
        {{{"pairwise", "CCMP NONE"}}, {"pairwiseCiphers=5"}},
        {{{"pairwise", ""}}, {"pairwiseCiphers=0"}},
        {{{"group", "WEP40 CCMP"}}, {"groupCiphers=20"}},
        {{{"group", ""}}, {"groupCiphers=0"}},
        {{{"proto", "RSN"}}, {"protocol=2"}},
        {{{"proto", ""}}, {"protocol=0"}},
        {{{"eap", "TTLS"}}, {"eapModes=4"}},
        {{{"eap", "PEAP MD5"}}, {"eapModes=2"}},
        {{{"eap", ""}}, {}},
        {{{"auth_alg", "SHARED"}}, {"authAlg=2"}},
        {{{"auth_alg", ""}}, {"authAlg=4"}},
        {{{"scan_ssid", "0"}}, {"ssidBroadcasted=1"}},
        {{{"scan_ssid", "1"}}, {}},
        {{{"scan_ssid", "00"}}, {}},
        {{{"scan_ssid", ""}}, {}},
        {{{"identity", "v"}}, {"EAPIdentity=v"}},
        {{{"anonymous_identity", "v"}}, {"EAPAnonymousIdentity=v"}},
        {{{"password", "v"}}, {"EAPPassword=v"}},
        {{{"private_key_passwd", "v"}}, {"PrivateKeyPassword=v"}},
        {{{"ca_cert", "v"}}, {"CACertificate=v"}},
        {{{"ca_path", "v"}}, {"CACertificateDir=v"}},
        {{{"client_cert", "v"}}, {"ClientCertificate=v"}},
        {{{"private_key", "v"}}, {"PrivateKeyFile=v"}},
        {{{"phase1", "v"}}, {"Phase1Step=v"}},
        {{{"phase2", "v"}}, {"Phase2Step=v"}},
        {{{"private_key_passwd2", "v"}}, {"PrivateKeyPassword2=v"}},
        {{{"ca_cert2", "v"}}, {"CACertificate2=v"}},
        {{{"ca_path2", "v"}}, {"CACertificateDir2=v"}},
        {{{"client_cert2", "v"}}, {"ClientCertificate2=v"}},
        {{{"private_key2", "v"}}, {"PrivateKeyFile2=v"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.values.begin()->first + " " + row.values.begin()->second);
        EXPECT_THAT(changes(row.values), ElementsAreArray(row.fields));
    }
}

TEST(NetworkKeys, OfWepFillTheirSlots) {
    const Values open = {{"key_mgmt", "NONE"}, {"wep_tx_keyidx", "2"}, {"wep_key0", "a"},
                         {"wep_key1", "b"},    {"wep_key2", "c"},      {"wep_key3", "d"}};
    EXPECT_THAT(changes(open),
                UnorderedElementsAreArray({"keyManagement=1", "wepIndex=2", "wepKey0=a",
                                           "wepKey1=b", "wepKey2=c", "wepKey3=d"}));
    EXPECT_THAT(changes({{"key_mgmt", "IEEE8021X"}, {"wep_tx_keyidx", "1"}, {"wep_key2", "c"}}),
                UnorderedElementsAreArray({"keyManagement=8", "wepIndex=1", "wepKey2=c"}));
    EXPECT_THAT(changes({{"key_mgmt", "NONE"}, {"wep_tx_keyidx", "4"}, {"wep_key3", "d"}}),
                UnorderedElementsAreArray({"keyManagement=1", "wepKey3=d"}))
        << "there is no slot of that number";
    EXPECT_THAT(changes({{"key_mgmt", "WPA-PSK"}, {"wep_tx_keyidx", "2"}, {"wep_key0", "a"}}),
                UnorderedElementsAreArray({"keyManagement=2"}));
}

TEST(NetworkKeys, KeepTheStatusOfAnEnabledNetwork) {
    WifiNetwork network;
    network.setNetworkStatus(NETWORK_STATUS_CONNECTING);
    readNetworkKeys(network, Asked(Values{{"disabled", "0"}}));
    EXPECT_EQ(network.getNetworkStatus(), NETWORK_STATUS_CONNECTING);
    readNetworkKeys(network, Asked(Values{{"disabled", "1"}}));
    EXPECT_EQ(network.getNetworkStatus(), NETWORK_STATUS_DISABLED);
}

} // namespace
