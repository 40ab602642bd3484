#include "settings/replies/NetworkKeys.h"

#include "model/NetworkFields.h"
#include "support/FieldTable.h"
#include "support/WordTable.h"
#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

using namespace platwifi;
using testing::ElementsAreArray;

namespace test {
namespace {

using Texts = std::vector<std::string>;
using Values = std::map<std::string, std::string>;

constexpr const char* NO_BSSID = "00:00:00:00:00:00";

constexpr FieldSet WEP_KEYS =
    setOf(Field::WEP_KEY0, Field::WEP_KEY1, Field::WEP_KEY2, Field::WEP_KEY3);
constexpr FieldSet WEP_FIELDS = WEP_KEYS | setOf(Field::WEP_INDEX);

// Every field that is read, in this order.
// clang-format off
const Field LOAD_ORDER[] = {
    Field::NETWORK_STATUS, Field::BSSID, Field::NETWORK_MODE, Field::PRIORITY, Field::KEY_MANAGEMENT,
    Field::PSK, Field::PAIRWISE_CIPHERS, Field::GROUP_CIPHERS, Field::PROTOCOL, Field::EAP_MODES,
    Field::AUTH_ALG, Field::WEP_INDEX, Field::WEP_KEY0, Field::WEP_KEY1, Field::WEP_KEY2,
    Field::WEP_KEY3, Field::SSID_BROADCASTED, Field::EAP_IDENTITY, Field::EAP_ANONYMOUS_IDENTITY,
    Field::EAP_PASSWORD, Field::PRIVATE_KEY_PASSWORD, Field::CA_CERTIFICATE,
    Field::CA_CERTIFICATE_DIR, Field::CLIENT_CERTIFICATE, Field::PRIVATE_KEY_FILE,
    Field::PHASE1_STEP, Field::PHASE2_STEP, Field::PRIVATE_KEY_PASSWORD2, Field::CA_CERTIFICATE2,
    Field::CA_CERTIFICATE_DIR2, Field::CLIENT_CERTIFICATE2, Field::PRIVATE_KEY_FILE2,
};
// clang-format on

// The configuration has one status of a network: whether it is disabled.
const char* keyOf(Field field) {
    return field == Field::NETWORK_STATUS ? "disabled" : rowOf(field).key;
}

// A supplicant that has these values.
class Supplicant {
public:
    explicit Supplicant(Values values) : m_values(std::move(values)) {}

    const char* operator()(const std::string& key) {
        asked.push_back(key);
        const auto found = m_values.find(key);
        return found == m_values.end() ? nullptr : found->second.c_str();
    }

    Texts asked; // the keys, in order

private:
    Values m_values;
};

Texts keysAskedFor(const Values& values) {
    Supplicant supplicant(values);
    WifiNetwork network;
    readNetworkKeys(network, std::ref(supplicant));
    return supplicant.asked;
}

// Every key in order, without those of these fields.
Texts keysWithout(FieldSet fields) {
    Texts keys;
    for (const Field field : LOAD_ORDER)
        if (!contains(fields, field))
            keys.emplace_back(keyOf(field));
    return keys;
}

// A new network that was loaded from a supplicant with these values.
struct Loaded {
    explicit Loaded(const Values& values = {}) { readNetworkKeys(network, Supplicant(values)); }

    WifiNetwork network;
    NetworkFields& fields = NetworkFields::of(network);
};

void expectSame(const Loaded& loaded, const Loaded& expected) {
    EXPECT_THAT(valuesOf(loaded.network), ElementsAreArray(valuesOf(expected.network)));
}

Loaded loadedWith(Field field, const std::string& value) {
    return Loaded(Values{{keyOf(field), value}});
}

unsigned int loadedNumber(Field field, const std::string& value) {
    return loadedWith(field, value).fields.number(field);
}

// LOAD-15
TEST(NetworkKeys, AreAskedForInOrder) {
    EXPECT_THAT(keysAskedFor({}), ElementsAreArray(keysWithout(WEP_FIELDS)));
}

// LOAD-17
TEST(NetworkKeys, OfWepAreAskedForWhereTheKeyManagementAllowsThem) {
    for (const char* management : {"NONE", "IEEE8021X"}) {
        EXPECT_THAT(keysAskedFor({{"key_mgmt", management}, {"wep_key0", "k"}}),
                    ElementsAreArray(keysWithout(WEP_KEYS)))
            << "without an index there are no keys";
        EXPECT_THAT(keysAskedFor({{"key_mgmt", management}, {"wep_tx_keyidx", "0"}}),
                    ElementsAreArray(keysWithout(0)));
    }
    for (const char* management : {"WPA-NONE", "WPA-EAP", "WPA-PSK", "SAE", ""}) {
        EXPECT_THAT(keysAskedFor({{"key_mgmt", management}, {"wep_tx_keyidx", "0"}}),
                    ElementsAreArray(keysWithout(WEP_FIELDS)))
            << management;
    }
}

// Gives every field a value that no load without values gives it.
void fill(NetworkFields& fields) {
    for (const FieldRow& row : fieldRows()) {
        if (isText(row))
            fields.setText(row.field, "before");
        else
            fields.setNumber(row.field, 1);
    }
}

// LOAD-7, LOAD-10
TEST(NetworkKeys, WithoutValuesLeaveTheDefaultsOfTheSupplicantAndChangeNothingElse) {
    for (const bool isNew : {true, false}) {
        WifiNetwork network;
        WifiNetwork untouched;
        NetworkFields& expected = NetworkFields::of(untouched);
        if (!isNew) {
            fill(NetworkFields::of(network));
            fill(expected);
        }
        expected.setText(Field::BSSID, NO_BSSID);
        expected.setNumber(Field::KEY_MANAGEMENT, 6);
        expected.setNumber(Field::PAIRWISE_CIPHERS, 6);
        expected.setNumber(Field::GROUP_CIPHERS, 30);
        expected.setNumber(Field::PROTOCOL, 3);
        readNetworkKeys(network, Supplicant({}));
        EXPECT_THAT(valuesOf(network), ElementsAreArray(valuesOf(untouched)));
    }
}

TEST(NetworkKeys, FillTheirTexts) {
    for (const Field field : LOAD_ORDER) {
        if (!isText(rowOf(field)) || contains(WEP_KEYS, field))
            continue;
        for (const std::string& value : {std::string("*"), std::string(127, 'v')}) {
            SCOPED_TRACE(keyOf(field));
            Loaded expected;
            expected.fields.setText(field, value.c_str());
            expectSame(loadedWith(field, value), expected);
        }
    }
    EXPECT_EQ(loadedWith(Field::BSSID, "").network.getBssid(), nullptr);
}

// A new network that was loaded with this one value has this number, and nothing else is changed.
void expectNumber(Field field, const std::string& value, unsigned int number) {
    SCOPED_TRACE(std::string(keyOf(field)) + " " + value);
    Loaded expected;
    expected.fields.setNumber(field, number);
    expectSame(loadedWith(field, value), expected);
}

// The low 8 bits of a mode count, and words anywhere in a value, also as a part of another word.
// LOAD-13, LOAD-16, LOAD-18
TEST(NetworkKeys, FillTheirNumbers) {
    const std::map<Field, std::map<std::string, unsigned int>> numbers = {
        {Field::NETWORK_STATUS, {{"1", 5}, {"2", 5}, {"-1", 5}, {"0", 0}, {"yes", 0}}},
        {Field::NETWORK_MODE, {{"258", 2}, {"257", 1}, {"managed", 0}}},
        {Field::PRIORITY, {{"7", 7}, {"-1", 4294967295U}, {"99999999999", 2147483647U}}},
        {Field::SSID_BROADCASTED, {{"00", 0}, {"", 0}}},
        {Field::KEY_MANAGEMENT,
         {{"WPA-PSK-SHA256", 2},
          {"xIEEE8021Xx", 8},
          {"SAE", 0},
          {"wpa-psk", 0},
          {"WPA", 0},
          {"", 0}}},
        {Field::EAP_MODES, {{"PWD", 0}, {"tls", 0}, {"", 0}}},
        {Field::AUTH_ALG, {{"FILS", 4}, {"open", 4}, {"", 4}}},
        {Field::PAIRWISE_CIPHERS, {{"NONE CCMP TKIP", 7}, {"GCMP", 0}, {"", 0}}},
        {Field::GROUP_CIPHERS, {{"CCMP TKIP WEP104 WEP40", 30}, {"WEP", 0}, {"NONE", 0}, {"", 0}}},
        {Field::PROTOCOL, {{"WPA2", 1}, {"OSEN", 0}, {"", 0}}},
    };
    for (const auto& [field, values] : numbers)
        for (const auto& [value, number] : values)
            expectNumber(field, value, number);
    for (const auto& [field, words] : fieldWords())
        for (const WordRow& word : words)
            expectNumber(field, word.word, word.number);
}

// LOAD-16
TEST(NetworkKeys, OfSetsTakeAllWords) {
    for (const Field field : {Field::PAIRWISE_CIPHERS, Field::GROUP_CIPHERS, Field::PROTOCOL}) {
        for (const WordRow& first : wordsOf(field)) {
            for (const WordRow& second : wordsOf(field)) {
                const std::string value = std::string(first.word) + " " + second.word;
                expectNumber(field, value, first.number | second.number);
            }
        }
    }
}

// LOAD-16, LOAD-18
TEST(NetworkKeys, OfMethodsTakeTheFirstWordInOrder) {
    const std::map<Field, Texts> orders = {
        {Field::KEY_MANAGEMENT, {"WPA-NONE", "NONE", "WPA-EAP", "WPA-PSK", "IEEE8021X"}},
        {Field::EAP_MODES,
         {"TTLS", "TLS", "PEAP", "LEAP", "MD5", "MSCHAPV2", "GTC", "OTP", "PSK", "PAX", "FAST"}},
        {Field::AUTH_ALG, {"OPEN", "SHARED", "LEAP"}},
    };
    for (const auto& [field, order] : orders) {
        ASSERT_EQ(order.size(), wordsOf(field).size());
        for (std::size_t later = 1; later < order.size(); ++later) {
            const std::string& first = order[later - 1];
            const std::string value = order[later] + " " + first;
            EXPECT_EQ(loadedNumber(field, value), loadedNumber(field, first)) << value;
        }
    }
}

TEST(NetworkKeys, OfWepFillTheirSlots) {
    const struct {
        const char* management;
        const char* index;
        unsigned int expectedIndex;
        bool hasKeys;
    } rows[] = {
        {"NONE", "2", 2, true},
        {"IEEE8021X", "1", 1, true},
        {"NONE", "4", 0, true}, // there is no slot of that number
        {"WPA-PSK", "2", 0, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.management) + " " + row.index);
        Values values = {{"key_mgmt", row.management}};
        Loaded expected(values);
        expected.fields.setNumber(Field::WEP_INDEX, row.expectedIndex);
        for (unsigned int slot = 0; slot < WEP_KEY_COUNT; ++slot) {
            const FieldRow& key = rowOf(wepKeyField(slot));
            values[key.key] = key.name;
            if (row.hasKeys)
                expected.fields.setText(key.field, key.name);
        }
        values["wep_tx_keyidx"] = row.index;
        expectSame(Loaded(values), expected);
    }
}

// LOAD-11
TEST(NetworkKeys, KeepTheStatusOfAnEnabledNetwork) {
    WifiNetwork network;
    network.setNetworkStatus(NETWORK_STATUS_CONNECTING);
    readNetworkKeys(network, Supplicant(Values{{"disabled", "0"}}));
    EXPECT_EQ(network.getNetworkStatus(), NETWORK_STATUS_CONNECTING);
    readNetworkKeys(network, Supplicant(Values{{"disabled", "1"}}));
    EXPECT_EQ(network.getNetworkStatus(), NETWORK_STATUS_DISABLED);
}

} // namespace
} // namespace test
