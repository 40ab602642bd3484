#include "jni/NetworkProperties.h"

#include "model/NetworkFields.h"
#include "platform/ErrorHandler.h"

#include "support/FieldTable.h"
#include "support/KeyWorld.h"
#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <set>

using namespace test;
using platwifi::Field;
using platwifi::NetworkFields;
using platwifi::setNetworkProperty;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Properties with rules of their own.
bool isSpecial(const FieldRow& row) {
    switch (row.field) {
    case Field::SSID:
    case Field::BSSID:
    case Field::SSID_BROADCASTED:
    case Field::NETWORK_MODE:
    case Field::GROUP_CIPHERS:
    case Field::PAIRWISE_CIPHERS:
    case Field::WEP_INDEX:
        return true;
    default:
        return false;
    }
}

bool isNumber(const FieldRow& row) {
    return !isText(row) && !isSpecial(row);
}

bool isPlainText(const FieldRow& row) {
    return isText(row) && !isSpecial(row) && !isEnciphered(row);
}

std::vector<FieldRow> rowsThat(const std::function<bool(const FieldRow&)>& match) {
    std::vector<FieldRow> rows;
    for (const FieldRow& row : fieldRows()) {
        if (row.property && match(row))
            rows.push_back(row);
    }
    return rows;
}

/// A network in which everything is set, and nothing is dirty.
class FullNetwork {
protected:
    FullNetwork() {
        for (const FieldRow& row : fieldRows()) {
            if (isText(row))
                fields().setText(row.field, "old");
            else
                fields().setNumber(row.field, row.field == Field::WEP_INDEX ? 1 : 77);
        }
        network.setSsidBroadcasted(true);
        network.cleanDirtyFields();
    }

    NetworkFields& fields() { return NetworkFields::of(network); }

    // Sets a property. Returns the fields that have another value now.
    FieldValues changesBy(const char* name, const char* value) {
        const FieldValues before = valuesOf(network);
        setNetworkProperty(network, name, value, &errors);
        return changesSince(before, network);
    }

    std::vector<std::string> dirty() const { return dirtyOf(network); }

    WifiNetwork network;
    ErrorHandler errors;
    const std::vector<FieldRow> secrets = rowsThat(isEnciphered);
};

class NetworkProperties : public FullNetwork, public testing::Test {};
class SecretProperties : public FullNetwork, public KeyWorld {};

std::string equals(const FieldRow& row, const std::string& value) {
    return std::string(row.name) + "=" + value;
}

TEST_F(NetworkProperties, TakeTheNumberThatAValueBeginsWith) {
    const struct {
        const char* value;
        const char* number;
    } values[] = {
        {"5", "5"},      {"0", "0"},    {"300", "300"},
        {"", "0"},       {"abc", "0"},  {nullptr, "0"},
        {" 12x3", "12"}, {"0x10", "0"}, {"-1", "4294967295"},
        {"007", "7"},    {"1.9", "1"},  {"99999999999999999999", "2147483647"},
        {"+3", "3"},
    };
    const std::vector<FieldRow> numbers = rowsThat(isNumber);
    EXPECT_EQ(numbers.size(), 8U);
    for (const FieldRow& row : numbers) {
        for (const auto& given : values) {
            SCOPED_TRACE(std::string(row.property) + " " + (given.value ? given.value : "null"));
            fields().setNumber(row.field, 77);
            network.cleanDirtyFields();
            EXPECT_THAT(changesBy(row.property, given.value),
                        ElementsAre(equals(row, given.number)));
            EXPECT_EQ(dirty(), hasFlag(row) ? FieldValues{row.name} : FieldValues{});
        }
    }
}

// API-4
TEST_F(NetworkProperties, KeepEightBitsOfTheMode) {
    EXPECT_THAT(changesBy("mode", "300"), ElementsAre("networkMode=44"));
    EXPECT_THAT(changesBy("mode", "256"), ElementsAre("networkMode=0"));
    EXPECT_THAT(changesBy("mode", "-1"), ElementsAre("networkMode=255"));
    EXPECT_THAT(changesBy("mode", nullptr), ElementsAre("networkMode=0"));
    EXPECT_THAT(changesBy("mode", "1"), ElementsAre("networkMode=1"));
    EXPECT_THAT(dirty(), ElementsAre("networkMode"));
}

TEST_F(NetworkProperties, RefuseAWepIndexThatIsNone) {
    EXPECT_THAT(changesBy("index", "4"), IsEmpty());
    EXPECT_THAT(changesBy("index", "-1"), IsEmpty());
    EXPECT_THAT(dirty(), IsEmpty());
    EXPECT_THAT(changesBy("index", "3"), ElementsAre("wepIndex=3"));
    EXPECT_THAT(changesBy("index", ""), ElementsAre("wepIndex=0"));
    EXPECT_THAT(dirty(), ElementsAre("wepIndex"));
}

TEST_F(NetworkProperties, StoreATextAndClearItWithAnEmptyOneOrNull) {
    const std::vector<FieldRow> texts = rowsThat(isPlainText);
    EXPECT_EQ(texts.size(), 16U);
    for (const FieldRow& row : texts) {
        SCOPED_TRACE(row.property);
        for (const char* const value : {"a value", "", "\xff caf\xc3\xa9"}) {
            network.cleanDirtyFields();
            EXPECT_THAT(changesBy(row.property, value),
                        ElementsAre(equals(row, *value ? value : "null")));
            EXPECT_THAT(dirty(), ElementsAre(row.name));
        }
        EXPECT_THAT(changesBy(row.property, nullptr), ElementsAre(equals(row, "null")));
    }
}

TEST_F(NetworkProperties, TakeABssidUnchanged) {
    EXPECT_THAT(changesBy("bssid", "any"), ElementsAre("bssid=any"));
    EXPECT_THAT(changesBy("bssid", ""), ElementsAre("bssid="));
    EXPECT_THAT(changesBy("bssid", "x"), ElementsAre("bssid=x"));
    EXPECT_THAT(changesBy("bssid", nullptr), ElementsAre("bssid=null"));
    EXPECT_THAT(dirty(), ElementsAre("bssid"));
}

TEST_F(SecretProperties, DecipherASecret) {
    EXPECT_EQ(secrets.size(), 4U);
    for (const FieldRow& row : secrets) {
        SCOPED_TRACE(row.property);
        network.cleanDirtyFields();
        const std::string plain = std::string("hush ") + row.property;
        EXPECT_THAT(changesBy(row.property, encrypted(plain).text->c_str()),
                    ElementsAre(equals(row, plain)));
        EXPECT_THAT(dirty(), ElementsAre(row.name));
        EXPECT_EQ(errors.savedError(), nullptr);
    }
}

TEST_F(SecretProperties, ClearASecretWithoutACipher) {
    putKey("too short");
    for (const FieldRow& row : secrets) {
        SCOPED_TRACE(row.property);
        for (const char* const nothing : {"", static_cast<const char*>(nullptr)}) {
            fields().setText(row.field, "old");
            EXPECT_THAT(changesBy(row.property, nothing), ElementsAre(equals(row, "null")));
            EXPECT_THAT(changesBy(row.property, nothing), IsEmpty());
        }
        EXPECT_EQ(errors.savedError(), nullptr);
    }
}

TEST_F(SecretProperties, LeaveASecretThatDoesNotDecipherAndReportIt) {
    for (const FieldRow& row : secrets) {
        SCOPED_TRACE(row.property);
        errors.clearError();
        EXPECT_THAT(changesBy(row.property, "in plain"), IsEmpty());
        ASSERT_NE(errors.savedError(), nullptr);
        EXPECT_STREQ(errors.savedError()->id(), "crypt.damaged");
        EXPECT_EQ(std::string(errors.savedError()->text()).find("in plain"), std::string::npos);
        setNetworkProperty(network, row.property, "in plain", nullptr);
    }
    EXPECT_THAT(dirty(), IsEmpty());
}

TEST_F(NetworkProperties, SplitTheEncryptionIntoCiphers) {
    const struct {
        const char* code;
        FieldValues changes;
    } rows[] = {
        {"6", {"groupCiphers=2", "pairwiseCiphers=4"}},
        {"16", {"groupCiphers=16"}},
        {"8", {"groupCiphers=8"}},
        {"1", {"pairwiseCiphers=1"}},
        {"4", {"groupCiphers=4", "pairwiseCiphers=4"}},
        {"2", {"groupCiphers=2", "pairwiseCiphers=2"}},
        {"24", {"groupCiphers=24", "pairwiseCiphers=24"}},
        {"none", {"groupCiphers=0", "pairwiseCiphers=0"}},
        {nullptr, {"groupCiphers=0", "pairwiseCiphers=0"}},
    };
    for (const auto& row : rows) {
        network.setPairwiseCiphers(77);
        network.setGroupCiphers(77);
        EXPECT_EQ(changesBy("encryption", row.code), row.changes) << row.code;
    }
}

// API-5
TEST_F(NetworkProperties, SetTheGroupCiphersAlsoIfThePairwiseOnesStay) {
    network.setPairwiseCiphers(4);
    EXPECT_THAT(changesBy("encryption", "4"), ElementsAre("groupCiphers=4"));
    EXPECT_THAT(changesBy("encryption", "6"), ElementsAre("groupCiphers=2"));
}

TEST_F(NetworkProperties, TakeOnlyTrueForABroadcastSsid) {
    for (const char* const value :
         {"True", "TRUE", "1", "", " true", "true ", "false", static_cast<const char*>(nullptr)}) {
        network.cleanDirtyFields();
        setNetworkProperty(network, "ssidBroadcasted", "true", nullptr);
        EXPECT_EQ(network.getSsidBroadcasted(), 1U);
        EXPECT_THAT(changesBy("ssidBroadcasted", value), ElementsAre("ssidBroadcasted=0"));
        EXPECT_THAT(dirty(), ElementsAre("ssidBroadcasted"));
    }
}

// API-9
TEST_F(NetworkProperties, NeverRenameTheNetwork) {
    for (const char* const value : {"villa", "", static_cast<const char*>(nullptr)})
        EXPECT_THAT(changesBy("ssid", value), IsEmpty());
    EXPECT_THAT(dirty(), IsEmpty());
}

// The name in another case, a part of it, and more than it.
std::vector<std::string> variantsOf(const std::string& name) {
    std::string otherCase = name;
    otherCase[0] = static_cast<char>(std::islower(otherCase[0]) ? std::toupper(otherCase[0])
                                                                : std::tolower(otherCase[0]));
    std::string upper;
    for (const char character : name)
        upper += static_cast<char>(std::toupper(character));
    return {otherCase, upper, name + " ", " " + name, name + "3", name.substr(0, name.size() - 1)};
}

TEST_F(NetworkProperties, SkipEveryOtherName) {
    std::set<std::string> names;
    for (const FieldRow& row : fieldRows()) {
        if (row.property)
            names.insert(row.property);
    }
    EXPECT_EQ(names.size(), 34U);
    std::vector<std::string> others = {"",     "ip",   "networkId", "Channel",
                                       "SSID", "key0", "key5",      "\xff"};
    for (const std::string& name : names) {
        for (const std::string& variant : variantsOf(name))
            others.push_back(variant);
    }
    for (const std::string& name : others) {
        if (names.count(name) != 0)
            continue;
        EXPECT_THAT(changesBy(name.c_str(), "1"), IsEmpty()) << name;
    }
    EXPECT_THAT(changesBy(nullptr, "1"), IsEmpty());
    EXPECT_THAT(dirty(), IsEmpty());
    EXPECT_EQ(errors.savedError(), nullptr);
}

} // namespace
