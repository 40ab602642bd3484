// Natives that change one field of one network.

#include "FieldNatives.h"

#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

#define WRITES(Value, method) jboolean NATIVE(method)(JNIEnv*, jclass, jstring, jstring, Value);

// Under its C++ name.
WRITES(jstring, setSsid0)

extern "C" {
WRITES(jstring, setPreferredBssid0)
WRITES(jstring, setEAPIdentity0)
WRITES(jstring, setEAPAnonymousIdentity0)
WRITES(jstring, setTunnelPhase10)
WRITES(jstring, setTunnelPhase20)
WRITES(jstring, setCACertificate0)
WRITES(jstring, setCACertificateDir0)
WRITES(jstring, setClientCertificate0)
WRITES(jstring, setPrivateKeyFile0)
WRITES(jstring, setCACertificate20)
WRITES(jstring, setCACertificateDir20)
WRITES(jstring, setClientCertificate20)
WRITES(jstring, setPrivateKeyFile20)
WRITES(jint, setAuthentication0)
WRITES(jint, setKeyManagement0)
WRITES(jint, setProtocol0)
WRITES(jint, setEAPMethod0)
WRITES(jint, setPriority0)
WRITES(jint, setNetworkMode0)
WRITES(jint, setNetworkStatus0)
WRITES(jint, setSignalStrength0)
WRITES(jint, setWepIndex0)
WRITES(jint, setEncryption0)
WRITES(jboolean, setSsidBroadcasted0)
jboolean NATIVE(setWepKey0)(JNIEnv*, jclass, jstring, jstring, jint, jstring);
}

namespace {

class FieldSetters : public testing::Test {
protected:
    jboolean set(SetterNative<jstring> native, const char* value, const char* ssid = "home") {
        return world.call(native, ssid, world.javaText(value));
    }

    jboolean set(SetterNative<jint> native, jint value, const char* ssid = "home") {
        return world.call(native, ssid, value);
    }

    std::vector<std::string> dirty() { return dirtyOf(world.network()); }

    OneNetwork world;
};

// Texts.

struct Text {
    SetterNative<jstring> native;
    const char* field;
};

// clang-format off
const Text TEXTS[] = {
    {NATIVE(setPreferredBssid0), "bssid"},
    {NATIVE(setEAPIdentity0), "EAPIdentity"},
    {NATIVE(setEAPAnonymousIdentity0), "EAPAnonymousIdentity"},
    {NATIVE(setTunnelPhase10), "Phase1Step"},
    {NATIVE(setTunnelPhase20), "Phase2Step"},
    {NATIVE(setCACertificate0), "CACertificate"},
    {NATIVE(setCACertificateDir0), "CACertificateDir"},
    {NATIVE(setClientCertificate0), "ClientCertificate"},
    {NATIVE(setPrivateKeyFile0), "PrivateKeyFile"},
    {NATIVE(setCACertificate20), "CACertificate2"},
    {NATIVE(setCACertificateDir20), "CACertificateDir2"},
    {NATIVE(setClientCertificate20), "ClientCertificate2"},
    {NATIVE(setPrivateKeyFile20), "PrivateKeyFile2"},
};
// clang-format on

const char* read(const WifiNetwork& network, const std::string& field) {
    for (const TextRow& row : textRows()) {
        if (field == row.name)
            return (network.*row.get)();
    }
    return nullptr;
}

TEST_F(FieldSetters, ChangeATextAndTellWhetherItChanged) {
    for (const Text& text : TEXTS) {
        SCOPED_TRACE(text.field);
        world.network().cleanDirtyFields();
        EXPECT_EQ(set(text.native, "a value"), JNI_TRUE);
        EXPECT_STREQ(read(world.network(), text.field), "a value");
        EXPECT_THAT(dirty(), ElementsAre(text.field));
        EXPECT_EQ(set(text.native, "a value"), JNI_FALSE);
    }
}

TEST_F(FieldSetters, KeepAnEmptyTextEmpty) {
    for (const Text& text : TEXTS) {
        SCOPED_TRACE(text.field);
        set(text.native, "a value");
        EXPECT_EQ(set(text.native, ""), JNI_TRUE);
        EXPECT_STREQ(read(world.network(), text.field), "");
    }
}

TEST_F(FieldSetters, ClearATextWithNull) {
    for (const Text& text : TEXTS) {
        SCOPED_TRACE(text.field);
        set(text.native, "a value");
        EXPECT_EQ(set(text.native, nullptr), JNI_TRUE);
        EXPECT_EQ(read(world.network(), text.field), nullptr);
        EXPECT_EQ(set(text.native, nullptr), JNI_FALSE);
    }
}

TEST_F(FieldSetters, RenameTheNetwork) {
    EXPECT_EQ(set(NATIVE(setSsid0), "home"), JNI_FALSE);
    EXPECT_EQ(set(NATIVE(setSsid0), "villa"), JNI_TRUE);
    EXPECT_EQ(set(NATIVE(setSsid0), "home"), JNI_FALSE) << "not there any more";
    EXPECT_EQ(set(NATIVE(setSsid0), "home", "villa"), JNI_TRUE);
    EXPECT_THAT(dirty(), ElementsAre("ssid"));
}

// Numbers.

struct Number {
    SetterNative<jint> native;
    const char* field;
};

// clang-format off
const Number NUMBERS[] = {
    {NATIVE(setAuthentication0), "authAlg"},
    {NATIVE(setKeyManagement0), "keyManagement"},
    {NATIVE(setProtocol0), "protocol"},
    {NATIVE(setEAPMethod0), "eapModes"},
};
// clang-format on

unsigned int readNumber(const WifiNetwork& network, const std::string& field) {
    for (const NumberRow& row : numberRows()) {
        if (field == row.name)
            return (network.*row.get)();
    }
    return 0;
}

TEST_F(FieldSetters, ChangeANumberAndTellWhetherItChanged) {
    for (const Number& number : NUMBERS) {
        SCOPED_TRACE(number.field);
        world.network().cleanDirtyFields();
        EXPECT_EQ(set(number.native, 0x12345678), JNI_TRUE);
        EXPECT_EQ(readNumber(world.network(), number.field), 0x12345678U);
        EXPECT_THAT(dirty(), ElementsAre(number.field));
        EXPECT_EQ(set(number.native, 0x12345678), JNI_FALSE);
        EXPECT_EQ(set(number.native, -1), JNI_TRUE);
        EXPECT_EQ(readNumber(world.network(), number.field), 4294967295U);
    }
}

// API-4
TEST_F(FieldSetters, KeepEightBitsOfPriorityAndMode) {
    const struct {
        jint given;
        unsigned int kept;
    } rows[] = {{300, 44}, {256, 0}, {-1, 255}, {7, 7}};
    for (const auto& row : rows) {
        EXPECT_EQ(set(NATIVE(setPriority0), row.given), JNI_TRUE);
        EXPECT_EQ(world.network().getPriority(), row.kept);
        EXPECT_EQ(set(NATIVE(setPriority0), row.given), JNI_FALSE);
        EXPECT_EQ(set(NATIVE(setNetworkMode0), row.given), JNI_TRUE);
        EXPECT_EQ(world.network().getNetworkMode(), row.kept);
        EXPECT_EQ(set(NATIVE(setNetworkMode0), row.given), JNI_FALSE);
    }
    EXPECT_THAT(dirty(), ElementsAre("networkMode", "priority"));
}

TEST_F(FieldSetters, ChangeFactsWithoutMarkingThem) {
    for (const jint value : {5, 5, 0x12345678, -1}) {
        EXPECT_EQ(set(NATIVE(setNetworkStatus0), value), JNI_TRUE);
        EXPECT_EQ(set(NATIVE(setSignalStrength0), value), JNI_TRUE);
        EXPECT_EQ(world.network().getNetworkStatus(), static_cast<unsigned int>(value));
        EXPECT_EQ(world.network().getStrength(), static_cast<unsigned int>(value));
    }
    EXPECT_THAT(dirty(), IsEmpty());
}

TEST_F(FieldSetters, TakeOnlyOneForABroadcastSsid) {
    const auto broadcast = [this](jboolean value) {
        EXPECT_EQ(world.call(NATIVE(setSsidBroadcasted0), "home", value), JNI_TRUE);
        return world.network().getSsidBroadcasted();
    };
    EXPECT_EQ(broadcast(JNI_TRUE), 1U);
    EXPECT_EQ(broadcast(2), 0U);
    EXPECT_EQ(broadcast(JNI_TRUE), 1U);
    EXPECT_EQ(broadcast(JNI_FALSE), 0U);
    EXPECT_THAT(dirty(), ElementsAre("ssidBroadcasted"));
}

TEST_F(FieldSetters, SplitTheEncryptionIntoCiphers) {
    const struct {
        jint code;
        jboolean result;
        unsigned int pairwise;
        unsigned int group;
    } rows[] = {
        {6, JNI_TRUE, 4, 2},     //
        {16, JNI_TRUE, 64, 16},  //
        {8, JNI_TRUE, 64, 8},    //
        {1, JNI_TRUE, 1, 64},    //
        {4, JNI_TRUE, 4, 4},     //
        {2, JNI_TRUE, 2, 2},     //
        {0, JNI_TRUE, 0, 0},     //
        {24, JNI_TRUE, 24, 24},  //
        {64, JNI_FALSE, 64, 64}, // neither changes
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code);
        world.network().setPairwiseCiphers(64);
        world.network().setGroupCiphers(64);
        EXPECT_EQ(set(NATIVE(setEncryption0), row.code), row.result);
        EXPECT_EQ(world.network().getPairwiseCiphers(), row.pairwise);
        EXPECT_EQ(world.network().getGroupCiphers(), row.group);
    }
}

// API-5
TEST_F(FieldSetters, LeaveTheGroupCiphersWhereThePairwiseOnesDoNotChange) {
    for (const jint code : {6, 4}) {
        world.network().setPairwiseCiphers(4);
        world.network().setGroupCiphers(64);
        EXPECT_EQ(set(NATIVE(setEncryption0), code), JNI_FALSE);
        EXPECT_EQ(world.network().getGroupCiphers(), 64U);
    }
}

TEST_F(FieldSetters, TellOfTheGroupCiphersWhereThePairwiseOnesChange) {
    world.network().setPairwiseCiphers(1);
    world.network().setGroupCiphers(2);
    EXPECT_EQ(set(NATIVE(setEncryption0), 6), JNI_FALSE);
    EXPECT_EQ(world.network().getPairwiseCiphers(), 4U);
}

// WEP.

// API-6
TEST_F(FieldSetters, AlwaysSucceedForTheWepIndex) {
    EXPECT_EQ(set(NATIVE(setWepIndex0), 2), JNI_TRUE);
    EXPECT_EQ(world.network().getWepIndex(), 2U);
    EXPECT_EQ(set(NATIVE(setWepIndex0), 2), JNI_TRUE) << "no change";
    for (const jint refused : {4, 0x101, 0x10001, -1})
        EXPECT_EQ(set(NATIVE(setWepIndex0), refused), JNI_TRUE);
    EXPECT_EQ(world.network().getWepIndex(), 2U);
    EXPECT_EQ(set(NATIVE(setWepIndex0), 3, "other"), JNI_TRUE) << "no such network";
    EXPECT_EQ(world.network().getWepIndex(), 2U);
}

// API-6
TEST_F(FieldSetters, AlwaysSucceedForAWepKey) {
    const auto setKey = [this](jint slot, const char* key, const char* ssid = "home") {
        return world.call(NATIVE(setWepKey0), ssid, slot, world.javaText(key));
    };
    for (jint slot = 0; slot < 4; ++slot) {
        const std::string key = "key " + std::to_string(slot);
        EXPECT_EQ(setKey(slot, key.c_str()), JNI_TRUE);
        EXPECT_STREQ(world.network().getWepKey(static_cast<unsigned int>(slot)), key.c_str());
    }
    EXPECT_EQ(setKey(1, nullptr), JNI_TRUE);
    EXPECT_EQ(world.network().getWepKey(1), nullptr);
    for (const jint refused : {4, 0x100, 0x10000, -1})
        EXPECT_EQ(setKey(refused, "x"), JNI_TRUE);
    EXPECT_EQ(setKey(0, "x", "other"), JNI_TRUE) << "no such network";
    EXPECT_STREQ(world.network().getWepKey(0), "key 0");
}

// Without a network.

TEST_F(FieldSetters, FailWithoutTheNetwork) {
    for (const char* ssid : {"other", "", static_cast<const char*>(nullptr)}) {
        for (const Text& text : TEXTS)
            EXPECT_EQ(set(text.native, "a value", ssid), JNI_FALSE) << text.field;
        for (const Number& number : NUMBERS)
            EXPECT_EQ(set(number.native, 1, ssid), JNI_FALSE) << number.field;
        for (const SetterNative<jint> native :
             {NATIVE(setPriority0), NATIVE(setNetworkMode0), NATIVE(setNetworkStatus0),
              NATIVE(setSignalStrength0), NATIVE(setEncryption0)})
            EXPECT_EQ(set(native, 1, ssid), JNI_FALSE);
        EXPECT_EQ(world.call(NATIVE(setSsidBroadcasted0), ssid, jboolean{JNI_TRUE}), JNI_FALSE);
        EXPECT_EQ(set(NATIVE(setSsid0), "villa", ssid), JNI_FALSE);
    }
    EXPECT_THAT(dirty(), IsEmpty());
}

TEST_F(FieldSetters, FailWithoutAnyNetworksButForWep) {
    world.loseNetworks();
    EXPECT_EQ(set(NATIVE(setKeyManagement0), 2), JNI_FALSE);
    EXPECT_EQ(set(NATIVE(setEAPIdentity0), "me"), JNI_FALSE);
    EXPECT_EQ(set(NATIVE(setWepIndex0), 2), JNI_TRUE);
}

} // namespace
