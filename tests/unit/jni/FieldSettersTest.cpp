// Natives that change one field of one network.

#include "OneNetwork.h"

#include "support/FieldTable.h"
#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>

using namespace test;
using platwifi::Field;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Numbers that are stored bit for bit, and only if they change.
constexpr Field NUMBERS[] = {Field::AUTH_ALG, Field::KEY_MANAGEMENT, Field::PROTOCOL,
                             Field::EAP_MODES};

class FieldSetters : public OneNetwork, public testing::Test {
protected:
    FieldSetters() {
        for (const FieldRow& row : fieldRows()) {
            if (row.setter && isText(row) && !isEnciphered(row))
                texts.push_back(row);
        }
    }

    bool setBroadcast(jboolean value) {
        return flag("setSsidBroadcasted0", {"wlan0", "home", nullptr, 0, value});
    }

    bool setWepKey(jint slot, const char* key, const char* ssid = "home") {
        return flag("setWepKey0", {"wlan0", ssid, key, slot});
    }

    std::vector<std::string> dirty() { return dirtyOf(network()); }

    std::vector<FieldRow> texts; // those that cross from Java as they are
};

// Texts.

TEST_F(FieldSetters, ChangeATextAndReturnWhetherItChanged) {
    EXPECT_EQ(texts.size(), 13U);
    for (const FieldRow& row : texts) {
        SCOPED_TRACE(row.setter);
        network().cleanDirtyFields();
        const FieldValues before = valuesOf(network());
        EXPECT_TRUE(set(row.setter, "a value"));
        EXPECT_THAT(changesSince(before, network()),
                    ElementsAre(row.name + std::string("=a value")));
        EXPECT_THAT(dirty(), ElementsAre(row.name));
        EXPECT_FALSE(set(row.setter, "a value"));
        EXPECT_TRUE(set(row.setter, "")) << "an empty text stays empty";
        EXPECT_STREQ(fields().text(row.field), "");
        set(row.setter, "a value");
        EXPECT_TRUE(set(row.setter, nullptr)) << "null clears";
        EXPECT_EQ(fields().text(row.field), nullptr);
        EXPECT_FALSE(set(row.setter, nullptr));
    }
}

TEST_F(FieldSetters, RenameTheNetwork) {
    EXPECT_FALSE(set("setSsid0", "home"));
    EXPECT_TRUE(set("setSsid0", "villa"));
    EXPECT_FALSE(set("setSsid0", "home")) << "not there any more";
    EXPECT_TRUE(set("setSsid0", "home", "villa"));
    EXPECT_THAT(dirty(), ElementsAre("ssid"));
}

// Numbers.

TEST_F(FieldSetters, ChangeANumberAndReturnWhetherItChanged) {
    for (const Field field : NUMBERS) {
        const FieldRow& row = rowOf(field);
        SCOPED_TRACE(row.setter);
        network().cleanDirtyFields();
        const FieldValues before = valuesOf(network());
        EXPECT_TRUE(set(row.setter, 0x12345678));
        EXPECT_THAT(changesSince(before, network()),
                    ElementsAre(row.name + std::string("=305419896")));
        EXPECT_THAT(dirty(), ElementsAre(row.name));
        EXPECT_FALSE(set(row.setter, 0x12345678));
        EXPECT_TRUE(set(row.setter, -1));
        EXPECT_EQ(fields().number(field), 4294967295U);
    }
}

// API-4
TEST_F(FieldSetters, KeepEightBitsOfPriorityAndMode) {
    const struct {
        jint given;
        unsigned int kept;
    } rows[] = {{300, 44}, {256, 0}, {-1, 255}, {7, 7}};
    for (const Field field : {Field::PRIORITY, Field::NETWORK_MODE}) {
        network().cleanDirtyFields();
        for (const auto& row : rows) {
            EXPECT_TRUE(set(rowOf(field).setter, row.given));
            EXPECT_EQ(fields().number(field), row.kept);
            EXPECT_FALSE(set(rowOf(field).setter, row.given));
        }
        EXPECT_THAT(dirty(), ElementsAre(rowOf(field).name));
    }
}

TEST_F(FieldSetters, ChangeReportedNumbersWithoutMarkingThem) {
    for (const Field field : {Field::NETWORK_STATUS, Field::STRENGTH}) {
        for (const jint value : {5, 5, 0x12345678, -1}) {
            EXPECT_TRUE(set(rowOf(field).setter, value));
            EXPECT_EQ(fields().number(field), static_cast<unsigned int>(value));
        }
    }
    EXPECT_THAT(dirty(), IsEmpty());
}

TEST_F(FieldSetters, TakeOnlyOneForABroadcastSsid) {
    for (const jboolean value :
         {jboolean{JNI_TRUE}, jboolean{2}, jboolean{JNI_TRUE}, jboolean{0}}) {
        EXPECT_TRUE(setBroadcast(value));
        EXPECT_EQ(network().getSsidBroadcasted(), value == JNI_TRUE ? 1U : 0U);
    }
    EXPECT_THAT(dirty(), ElementsAre("ssidBroadcasted"));
}

// API-5
TEST_F(FieldSetters, SplitTheEncryptionIntoCiphers) {
    struct Sets {
        unsigned int pairwise;
        unsigned int group;
    };
    const struct {
        jint code;
        Sets before;
        bool result;
        Sets after;
    } rows[] = {
        {6, {64, 64}, true, {4, 2}},
        {16, {64, 64}, true, {64, 16}},
        {8, {64, 64}, true, {64, 8}},
        {1, {64, 64}, true, {1, 64}},
        {4, {64, 64}, true, {4, 4}},
        {2, {64, 64}, true, {2, 2}},
        {0, {64, 64}, true, {0, 0}},
        {24, {64, 64}, true, {24, 24}},
        {64, {64, 64}, false, {64, 64}}, // neither changes
        {6, {4, 64}, false, {4, 64}},    // the pairwise ones do not change: the group ones stay
        {4, {4, 64}, false, {4, 64}},
        {6, {1, 2}, false, {4, 2}}, // whether the group ones change
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code);
        network().setPairwiseCiphers(row.before.pairwise);
        network().setGroupCiphers(row.before.group);
        EXPECT_EQ(set("setEncryption0", row.code), row.result);
        EXPECT_EQ(network().getPairwiseCiphers(), row.after.pairwise);
        EXPECT_EQ(network().getGroupCiphers(), row.after.group);
    }
}

// WEP.

// API-6
TEST_F(FieldSetters, AlwaysSucceedForTheWepIndex) {
    for (const jint given : {2, 2, 4, 0x101, 0x10001, -1}) {
        EXPECT_TRUE(set("setWepIndex0", given));
        EXPECT_EQ(network().getWepIndex(), 2U) << given;
    }
    EXPECT_TRUE(set("setWepIndex0", 3, "other")) << "no such network";
    EXPECT_EQ(network().getWepIndex(), 2U);
}

// API-6
TEST_F(FieldSetters, AlwaysSucceedForAWepKey) {
    for (jint slot = 0; slot < 4; ++slot) {
        const std::string key = "key " + std::to_string(slot);
        EXPECT_TRUE(setWepKey(slot, key.c_str()));
        EXPECT_STREQ(network().getWepKey(static_cast<unsigned int>(slot)), key.c_str());
    }
    EXPECT_TRUE(setWepKey(1, nullptr));
    EXPECT_EQ(network().getWepKey(1), nullptr);
    for (const jint refused : {4, 0x100, 0x10000, -1})
        EXPECT_TRUE(setWepKey(refused, "x"));
    EXPECT_TRUE(setWepKey(0, "x", "other")) << "no such network";
    EXPECT_STREQ(network().getWepKey(0), "key 0");
}

// A native has room for a short text; a longer one is converted, too.
TEST_F(FieldSetters, StoreTextsOfAnyLength) {
    for (const std::size_t length : {1U, 41U, 42U, 43U, 127U, 128U, 129U, 70000U}) {
        const std::string value(length, 'x');
        EXPECT_TRUE(set("setEAPIdentity0", value.c_str()));
        EXPECT_EQ(network().getEAPIdentity(), value);
        EXPECT_EQ(text("getEAPIdentity0", {"wlan0", "home"}), value);
    }
}

// Without a network.

// API-6
TEST_F(FieldSetters, FailWithoutTheNetworkButForWep) {
    const auto expectFailure = [this](const char* ssid) {
        for (const FieldRow& row : fieldRows()) {
            if (!row.setter || row.field == Field::WEP_INDEX)
                continue;
            EXPECT_FALSE(flag(row.setter, {"wlan0", ssid, "a value", 1, JNI_TRUE})) << row.setter;
        }
        EXPECT_FALSE(set("setEncryption0", 1, ssid));
        EXPECT_FALSE(set("setSsid0", "villa", ssid));
        EXPECT_TRUE(set("setWepIndex0", 2, ssid));
    };
    const FieldValues before = valuesOf(network());
    for (const char* ssid : {"other", "", static_cast<const char*>(nullptr)})
        expectFailure(ssid);
    EXPECT_EQ(valuesOf(network()), before);
    EXPECT_THAT(dirty(), IsEmpty());
    loseNetworks();
    expectFailure("home");
}

} // namespace
