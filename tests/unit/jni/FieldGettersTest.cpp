// Natives that read one field of one network.

#include "FieldNatives.h"

#include "unit/model/NetworkRows.h"

using namespace test;

#define READS(Result, method) Result NATIVE(method)(JNIEnv*, jclass, jstring, jstring);

extern "C" {
READS(jint, getAuthentication0)
READS(jint, getEAPMethod0)
READS(jint, getProtocol0)
READS(jint, getKeyManagement0)
READS(jint, getPriority0)
READS(jint, getNetworkMode0)
READS(jint, getChannel0)
READS(jint, getStrength0)
READS(jint, getWepIndex0)
READS(jint, getSupportedEncrytptionMethods0)
READS(jboolean, getSsidBroadcasted0)
READS(jstring, getBssid0)
READS(jstring, getEAPIdentity0)
READS(jstring, getEAPAnonymousIdentity0)
READS(jstring, getTunnelPhase10)
READS(jstring, getTunnelPhase20)
READS(jstring, getCACertificate0)
READS(jstring, getCACertificateDir0)
READS(jstring, getClientCertificate0)
READS(jstring, getPrivateKeyFile0)
READS(jstring, getCACertificate20)
READS(jstring, getCACertificateDir20)
READS(jstring, getClientCertificate20)
READS(jstring, getPrivateKeyFile20)
}

namespace {

class FieldGetters : public testing::Test {
protected:
    std::string textFrom(GetterNative<jstring> native, const char* ssid = "home") {
        const jstring text = world.call(native, ssid);
        return text ? world.java.textOf(text) : "(null)";
    }

    OneNetwork world;
};

struct Number {
    const char* name;
    GetterNative<jint> native;
    jint value;
};

// clang-format off
const Number NUMBERS[] = {
    {"getAuthentication0", NATIVE(getAuthentication0), 0x01020311},
    {"getEAPMethod0", NATIVE(getEAPMethod0), 0x01020312},
    {"getProtocol0", NATIVE(getProtocol0), 0x01020313},
    {"getKeyManagement0", NATIVE(getKeyManagement0), 0x01020314},
    {"getPriority0", NATIVE(getPriority0), -1},
    {"getNetworkMode0", NATIVE(getNetworkMode0), 200},
    {"getChannel0", NATIVE(getChannel0), 0x01020317},
    {"getStrength0", NATIVE(getStrength0), 0x01020318},
    {"getWepIndex0", NATIVE(getWepIndex0), 3},
    {"getSupportedEncrytptionMethods0", NATIVE(getSupportedEncrytptionMethods0), 0x76543277},
};
// clang-format on

void fillNumbers(WifiNetwork& network) {
    network.setAuthAlg(0x01020311);
    network.setEapModes(0x01020312);
    network.setProtocol(0x01020313);
    network.setKeyManagement(0x01020314);
    network.setPriority(4294967295U);
    network.setNetworkMode(200);
    network.setChannel(0x01020317);
    network.setStrength(0x01020318);
    network.setWepIndex(3);
    network.setPairwiseCiphers(0x70501016);
    network.setGroupCiphers(0x26042265);
}

TEST_F(FieldGetters, ReadNumbersBitForBit) {
    fillNumbers(world.network());
    for (const Number& number : NUMBERS)
        EXPECT_EQ(world.call(number.native, "home"), number.value) << number.name;
}

TEST_F(FieldGetters, ReadWhetherTheSsidIsBroadcast) {
    world.network().setSsidBroadcasted(true);
    EXPECT_EQ(world.call(NATIVE(getSsidBroadcasted0), "home"), JNI_TRUE);
    EXPECT_EQ(world.call(NATIVE(getSsidBroadcasted0), "other"), JNI_FALSE);
    world.network().setSsidBroadcasted(false);
    EXPECT_EQ(world.call(NATIVE(getSsidBroadcasted0), "home"), JNI_FALSE);
}

struct Text {
    GetterNative<jstring> native;
    const char* field;
};

// The anonymous identity is deliberately not read.
// clang-format off
const Text TEXTS[] = {
    {NATIVE(getBssid0), "bssid"},
    {NATIVE(getEAPIdentity0), "EAPIdentity"},
    {NATIVE(getEAPAnonymousIdentity0), "EAPIdentity"},
    {NATIVE(getTunnelPhase10), "Phase1Step"},
    {NATIVE(getTunnelPhase20), "Phase2Step"},
    {NATIVE(getCACertificate0), "CACertificate"},
    {NATIVE(getCACertificateDir0), "CACertificateDir"},
    {NATIVE(getClientCertificate0), "ClientCertificate"},
    {NATIVE(getPrivateKeyFile0), "PrivateKeyFile"},
    {NATIVE(getCACertificate20), "CACertificate2"},
    {NATIVE(getCACertificateDir20), "CACertificateDir2"},
    {NATIVE(getClientCertificate20), "ClientCertificate2"},
    {NATIVE(getPrivateKeyFile20), "PrivateKeyFile2"},
};
// clang-format on

// API-1
TEST_F(FieldGetters, ReadTexts) {
    for (const TextRow& row : textRows()) {
        if (row.set != &WifiNetwork::setSsid)
            (world.network().*row.set)(row.name);
    }
    for (const Text& text : TEXTS)
        EXPECT_EQ(textFrom(text.native), text.field);
}

TEST_F(FieldGetters, ReadWhatIsUnsetAsNull) {
    for (const TextRow& row : textRows()) {
        if (row.set != &WifiNetwork::setSsid)
            (world.network().*row.set)(nullptr);
    }
    for (const Text& text : TEXTS)
        EXPECT_EQ(textFrom(text.native), "(null)") << text.field;
}

TEST_F(FieldGetters, ReadBytesThatAreNotUtf8) {
    world.network().setEAPIdentity("caf\xE9");
    EXPECT_EQ(textFrom(NATIVE(getEAPIdentity0)), "caf\xED\xB3\xA9");
}

TEST_F(FieldGetters, GiveZeroAndNullWithoutTheNetwork) {
    fillNumbers(world.network());
    for (const char* ssid : {"other", "", static_cast<const char*>(nullptr)}) {
        for (const Number& number : NUMBERS)
            EXPECT_EQ(world.call(number.native, ssid), 0) << number.name;
        for (const Text& text : TEXTS)
            EXPECT_EQ(textFrom(text.native, ssid), "(null)") << text.field;
    }
}

TEST_F(FieldGetters, GiveZeroAndNullWithoutAnyNetworks) {
    world.loseNetworks();
    EXPECT_EQ(world.call(NATIVE(getPriority0), "home"), 0);
    EXPECT_EQ(world.call(NATIVE(getSsidBroadcasted0), "home"), JNI_FALSE);
    EXPECT_EQ(textFrom(NATIVE(getBssid0)), "(null)");
}

TEST_F(FieldGetters, GiveNullWithTheErrorPendingWhereJavaHasNoMemory) {
    world.java.failCall(FakeJni::Call::NewStringUTF);
    world.network().setEAPIdentity("me");
    EXPECT_EQ(textFrom(NATIVE(getEAPIdentity0)), "(null)");
    ASSERT_TRUE(world.java.pendingException());
    world.java.catchException();
}

TEST_F(FieldGetters, ChangeNothing) {
    const std::vector<std::string> before = valuesOf(world.network());
    for (const Number& number : NUMBERS)
        world.call(number.native, "home");
    for (const Text& text : TEXTS)
        textFrom(text.native);
    EXPECT_EQ(valuesOf(world.network()), before);
    EXPECT_FALSE(world.network().getNetworkDirty());
}

} // namespace
