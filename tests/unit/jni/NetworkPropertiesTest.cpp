#include "jni/NetworkProperties.h"

#include "model/WifiNetwork.h"
#include "platform/ErrorHandler.h"

#include "support/KeyWorld.h"
#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

using platwifi::setNetworkProperty;
using testing::ElementsAre;
using testing::IsEmpty;
using Values = std::vector<std::string>;

namespace {

struct Property {
    const char* name;
    const char* field; // as test::valuesOf() calls it
};

const Property NUMBERS[] = {
    {"authentication", "authAlg"}, {"channel", "channel"},      {"eap", "eapModes"},
    {"key_mgmt", "keyManagement"}, {"priority", "priority"},    {"protocol", "protocol"},
    {"strength", "strength"},      {"status", "networkStatus"},
};

const Property TEXTS[] = {
    {"clientCertificate", "ClientCertificate"},
    {"clientCertificate2", "ClientCertificate2"},
    {"CACertificateFile", "CACertificate"},
    {"CACertificateDir", "CACertificateDir"},
    {"CACertificateFile2", "CACertificate2"},
    {"CACertificateDir2", "CACertificateDir2"},
    {"eapIdentity", "EAPIdentity"},
    {"eapAnonymousIdentity", "EAPAnonymousIdentity"},
    {"key1", "wepKey0"},
    {"key2", "wepKey1"},
    {"key3", "wepKey2"},
    {"key4", "wepKey3"},
    {"phase1", "Phase1Step"},
    {"phase2", "Phase2Step"},
    {"privateKeyFile", "PrivateKeyFile"},
    {"privateKeyFile2", "PrivateKeyFile2"},
};

const Property SECRETS[] = {
    {"eapPassword", "EAPPassword"},
    {"psk", "psk"},
    {"privateKeyPassword", "PrivateKeyPassword"},
    {"privateKeyPassword2", "PrivateKeyPassword2"},
};

const char* const OTHERS[] = {"bssid", "encryption", "index", "mode", "ssid", "ssidBroadcasted"};

std::set<std::string> allNames() {
    std::set<std::string> names(std::begin(OTHERS), std::end(OTHERS));
    for (const Property& property : NUMBERS)
        names.insert(property.name);
    for (const Property& property : TEXTS)
        names.insert(property.name);
    for (const Property& property : SECRETS)
        names.insert(property.name);
    return names;
}

// The names of the facts that are never written back have no dirty flag.
bool isWrittenBack(const std::string& field) {
    return field != "strength" && field != "networkStatus";
}

/// A network in which everything is set, and clean.
class FullNetwork {
protected:
    FullNetwork() {
        for (const test::TextRow& row : test::textRows())
            (network.*row.set)("old");
        for (const test::NumberRow& row : test::numberRows())
            (network.*row.set)(77);
        for (unsigned int slot = 0; slot < 4; ++slot)
            network.setWepKey(slot, "old");
        network.setWepIndex(1);
        network.setNetworkMode(77);
        network.setNetworkStatus(77);
        network.setStrength(77);
        network.setSsidBroadcasted(true);
        network.cleanDirtyFields();
    }

    // Sets a property and tells which fields have another value now.
    Values changesBy(const char* name, const char* value) {
        const Values before = test::valuesOf(network);
        setNetworkProperty(network, name, value, &errors);
        const Values after = test::valuesOf(network);
        Values changes;
        for (std::size_t i = 0; i < after.size(); ++i) {
            if (after[i] != before[i])
                changes.push_back(after[i]);
        }
        return changes;
    }

    Values dirty() const { return test::dirtyOf(network); }

    WifiNetwork network;
    ErrorHandler errors;
};

class NetworkProperties : public FullNetwork, public testing::Test {};
class SecretProperties : public FullNetwork, public test::KeyWorld {};

TEST_F(NetworkProperties, TakeTheNumberThatAValueBeginsWith) {
    const struct {
        const char* value;
        const char* number;
    } rows[] = {
        {"5", "5"},      {"0", "0"},    {"300", "300"},
        {"", "0"},       {"abc", "0"},  {nullptr, "0"},
        {" 12x3", "12"}, {"0x10", "0"}, {"-1", "4294967295"},
        {"007", "7"},    {"1.9", "1"},  {"99999999999999999999", "2147483647"},
        {"+3", "3"},
    };
    for (const Property& property : NUMBERS) {
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(property.name) + " " + (row.value ? row.value : "null"));
            setNetworkProperty(network, property.name, "77", nullptr);
            network.cleanDirtyFields();
            EXPECT_THAT(changesBy(property.name, row.value),
                        ElementsAre(std::string(property.field) + "=" + row.number));
            if (isWrittenBack(property.field))
                EXPECT_THAT(dirty(), ElementsAre(property.field));
            else
                EXPECT_THAT(dirty(), IsEmpty());
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

TEST_F(NetworkProperties, StoreATextAndClearItWithNothing) {
    for (const Property& property : TEXTS) {
        SCOPED_TRACE(property.name);
        const std::string field = property.field;
        network.cleanDirtyFields();
        EXPECT_THAT(changesBy(property.name, "a value"), ElementsAre(field + "=a value"));
        EXPECT_THAT(dirty(), ElementsAre(field));
        network.cleanDirtyFields();
        EXPECT_THAT(changesBy(property.name, ""), ElementsAre(field + "=null"));
        EXPECT_THAT(dirty(), ElementsAre(field));
        EXPECT_THAT(changesBy(property.name, "\xff caf\xc3\xa9"),
                    ElementsAre(field + "=\xff caf\xc3\xa9"));
        EXPECT_THAT(changesBy(property.name, nullptr), ElementsAre(field + "=null"));
    }
}

TEST_F(NetworkProperties, TakeABssidAsItStands) {
    EXPECT_THAT(changesBy("bssid", "any"), ElementsAre("bssid=any"));
    EXPECT_THAT(changesBy("bssid", ""), ElementsAre("bssid="));
    EXPECT_THAT(changesBy("bssid", "x"), ElementsAre("bssid=x"));
    EXPECT_THAT(changesBy("bssid", nullptr), ElementsAre("bssid=null"));
    EXPECT_THAT(dirty(), ElementsAre("bssid"));
}

TEST_F(SecretProperties, DecipherASecret) {
    for (const Property& property : SECRETS) {
        SCOPED_TRACE(property.name);
        network.cleanDirtyFields();
        const std::string plain = std::string("hush ") + property.name;
        EXPECT_THAT(changesBy(property.name, test::encrypted(plain).text->c_str()),
                    ElementsAre(property.field + ("=" + plain)));
        EXPECT_THAT(dirty(), ElementsAre(property.field));
        EXPECT_EQ(errors.savedError(), nullptr);
    }
}

TEST_F(SecretProperties, ClearASecretWithoutACipher) {
    putKey("too short");
    for (const Property& property : SECRETS) {
        SCOPED_TRACE(property.name);
        EXPECT_THAT(changesBy(property.name, ""),
                    ElementsAre(std::string(property.field) + "=null"));
        EXPECT_THAT(changesBy(property.name, nullptr), IsEmpty());
        EXPECT_EQ(errors.savedError(), nullptr);
    }
}

TEST_F(NetworkProperties, ClearASecretWithNull) {
    for (const Property& property : SECRETS)
        EXPECT_THAT(changesBy(property.name, nullptr),
                    ElementsAre(std::string(property.field) + "=null"));
}

TEST_F(SecretProperties, LeaveASecretThatDoesNotDecipherAndReportIt) {
    for (const Property& property : SECRETS) {
        SCOPED_TRACE(property.name);
        errors.clearError();
        EXPECT_THAT(changesBy(property.name, "in plain"), IsEmpty());
        ASSERT_NE(errors.savedError(), nullptr);
        EXPECT_STREQ(errors.savedError()->id(), "crypt.damaged");
        EXPECT_EQ(std::string(errors.savedError()->text()).find("in plain"), std::string::npos);
        setNetworkProperty(network, property.name, "in plain", nullptr);
    }
    EXPECT_THAT(dirty(), IsEmpty());
}

TEST_F(NetworkProperties, SplitTheEncryptionIntoCiphers) {
    const struct {
        const char* code;
        Values changes;
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
TEST_F(NetworkProperties, SetTheGroupCiphersAlsoWhereThePairwiseOnesStay) {
    network.setPairwiseCiphers(4);
    EXPECT_THAT(changesBy("encryption", "4"), ElementsAre("groupCiphers=4"));
    EXPECT_THAT(changesBy("encryption", "6"), ElementsAre("groupCiphers=2"));
}

TEST_F(NetworkProperties, TakeNothingButTrueForABroadcastSsid) {
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

// Neither another case nor a part of a name, nor more than it.
TEST_F(NetworkProperties, SkipEveryOtherName) {
    const std::set<std::string> names = allNames();
    EXPECT_EQ(names.size(), 34U);
    for (const std::string& name : names) {
        std::string otherCase = name;
        otherCase[0] = static_cast<char>(std::islower(otherCase[0]) ? std::toupper(otherCase[0])
                                                                    : std::tolower(otherCase[0]));
        std::string upper;
        for (const char character : name)
            upper += static_cast<char>(std::toupper(character));
        for (const std::string& wrong : {otherCase, upper, name + " ", " " + name, name + "3",
                                         name.substr(0, name.size() - 1)}) {
            if (names.count(wrong) != 0)
                continue;
            EXPECT_THAT(changesBy(wrong.c_str(), "1"), IsEmpty()) << wrong;
        }
    }
    for (const char* const wrong :
         {"", "ip", "networkId", "Channel", "SSID", "key0", "key5", "\xff"})
        EXPECT_THAT(changesBy(wrong, "1"), IsEmpty()) << wrong;
    EXPECT_THAT(changesBy(nullptr, "1"), IsEmpty());
    EXPECT_THAT(dirty(), IsEmpty());
    EXPECT_EQ(errors.savedError(), nullptr);
}

} // namespace
