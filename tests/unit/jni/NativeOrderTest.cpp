// The order in which each kind of native makes its error handler, converts its strings, takes the locks and
// makes Java strings, and in which it releases all that.

#include "FieldNatives.h"
#include "RecordedCall.h"
#include "support/TestTime.h"

#include <gmock/gmock.h>

#include <new>

using namespace test;
using testing::EndsWith;
using testing::StartsWith;

#define PLAIN(Result, method) Result NATIVE(method)(JNIEnv*, jclass);
#define ON_INTERFACE(Result, method) Result NATIVE(method)(JNIEnv*, jclass, jstring);
#define ON_NETWORK(Result, method) Result NATIVE(method)(JNIEnv*, jclass, jstring, jstring);
#define WRITES(Value, method) jboolean NATIVE(method)(JNIEnv*, jclass, jstring, jstring, Value);

WRITES(jstring, setSsid0)

extern "C" {
ON_NETWORK(jint, getPriority0)
ON_NETWORK(jint, getSupportedEncrytptionMethods0)
ON_NETWORK(jboolean, getSsidBroadcasted0)
ON_NETWORK(jstring, getBssid0)
ON_NETWORK(jstring, getPreSharedKey0)
WRITES(jstring, setPreferredBssid0)
WRITES(jstring, setPreSharedKey0)
WRITES(jint, setProtocol0)
WRITES(jint, setPriority0)
WRITES(jboolean, setSsidBroadcasted0)
WRITES(jint, setEncryption0)
WRITES(jint, setWepIndex0)
jboolean NATIVE(setWepKey0)(JNIEnv*, jclass, jstring, jstring, jint, jstring);
ON_NETWORK(jobjectArray, getWepKeys0)
ON_NETWORK(jint, getNetworkStatus0)
ON_INTERFACE(jint, getDaemonStatus0)
ON_INTERFACE(jstring, getCurrentNetwork0)
ON_NETWORK(jboolean, connectToNetwork0)
ON_NETWORK(jboolean, disconnectFromNetwork0)
ON_NETWORK(jboolean, addNetwork0)
ON_NETWORK(jboolean, removeNetwork0)
ON_INTERFACE(jboolean, roamNetworks0)
PLAIN(jboolean, saveHostSettings0)
PLAIN(jboolean, unloadWifiSettings0)
ON_INTERFACE(jboolean, isWifiEnabled0)
PLAIN(jboolean, hashCACertificates0)
PLAIN(jobjectArray, getWifiAdapters0)
ON_INTERFACE(jobjectArray, discoverNetworks0)
ON_INTERFACE(jobjectArray, getNetworkDatabaseSsids0)
jstring JNICALL Java_com_quorvel_platwifi_PlatformCrypt_encrypt0(JNIEnv*, jclass, jstring);
jstring JNICALL Java_com_quorvel_platwifi_PlatformCrypt_decrypt0(JNIEnv*, jclass, jstring);
}

namespace {

const std::string LOCK = " +gate +list +state";
const std::string UNLOCK = " -state -list -gate";

// The steps of a native for this network, with these in the middle.
std::string around(const std::string& ssid, const std::string& steps) {
    return "+errors +wlan0 +" + ssid + steps + " -" + ssid + " -wlan0 -errors";
}

class NativeOrder : public testing::Test {
protected:
    NativeOrder() {
        world.network().setBssid("02:00:00:00:01:00");
        world.network().setPsk("key");
        world.java.atEveryString([] { RecordedCall::note("string"); });
    }

    // A call for the network with this SSID.
    template <typename Native, typename... Values>
    std::string steps(Native native, const char* ssid, Values... values) {
        return RecordedCall::stepsOf([&] { world.call(native, ssid, values...); });
    }

    // A call without an SSID.
    template <typename Native, typename... Strings>
    std::string stepsWith(Native native, Strings... strings) {
        return RecordedCall::stepsOf(
            [&] { native(world.java.environment(), nullptr, world.javaText(strings)...); });
    }

    const TestTime time{[](TestTime& t) { t.clockIs(1000000); }}; // the status is never due
    OneNetwork world;
    const RecordedCall recorded{world.settings()};
};

// Natives for one field.

struct Kind {
    const char* name;
    void (*call)(OneNetwork& world, const char* ssid);
    const char* under; // the steps under the lock, if there is such a network
    bool hasValue;     // a string of its own behind the SSID
};

template <auto NATIVE_METHOD>
void read(OneNetwork& world, const char* ssid) {
    world.call(NATIVE_METHOD, ssid);
}

template <auto NATIVE_METHOD>
void writeNumber(OneNetwork& world, const char* ssid) {
    world.call(NATIVE_METHOD, ssid, jint{2});
}

template <auto NATIVE_METHOD>
void writeText(OneNetwork& world, const char* ssid) {
    world.call(NATIVE_METHOD, ssid, world.javaText("value"));
}

void writeFlag(OneNetwork& world, const char* ssid) {
    world.call(NATIVE(setSsidBroadcasted0), ssid, jboolean{JNI_TRUE});
}

void writeWepKey(OneNetwork& world, const char* ssid) {
    world.call(NATIVE(setWepKey0), ssid, jint{1}, world.javaText("value"));
}

// clang-format off
const Kind KINDS[] = {
    {"reads a number", read<NATIVE(getPriority0)>, "", false},
    {"reads the ciphers", read<NATIVE(getSupportedEncrytptionMethods0)>, "", false},
    {"reads a flag", read<NATIVE(getSsidBroadcasted0)>, "", false},
    {"reads a text", read<NATIVE(getBssid0)>, " string", false},
    {"reads a secret", read<NATIVE(getPreSharedKey0)>, " encipher string", false},
    {"writes a number", writeNumber<NATIVE(setProtocol0)>, "", false},
    {"writes a byte", writeNumber<NATIVE(setPriority0)>, "", false},
    {"writes a flag", writeFlag, "", false},
    {"writes the ciphers", writeNumber<NATIVE(setEncryption0)>, "", false},
    {"writes the WEP index", writeNumber<NATIVE(setWepIndex0)>, "", false},
    {"writes a text", writeText<NATIVE(setPreferredBssid0)>, "", true},
    {"writes a secret", writeText<NATIVE(setPreSharedKey0)>, " decipher", true},
    {"writes a WEP key", writeWepKey, "", true},
    {"writes the SSID", writeText<NATIVE(setSsid0)>, "", true},
};
// clang-format on

std::string stepsOf(const Kind& kind, const std::string& ssid, const std::string& under) {
    const std::string locked = LOCK + under + UNLOCK;
    return around(ssid, kind.hasValue ? " +value" + locked + " -value" : locked);
}

TEST_F(NativeOrder, IsConvertLockAndReleaseInReverseForAField) {
    for (const Kind& kind : KINDS) {
        SCOPED_TRACE(kind.name);
        for (const std::string ssid : {"other", "home"}) {
            const std::string under = ssid == "home" ? kind.under : "";
            const std::string steps =
                RecordedCall::stepsOf([&] { kind.call(world, ssid.c_str()); });
            EXPECT_EQ(steps, stepsOf(kind, ssid, under));
        }
    }
}

// The array of empty strings is also the result if there is no such network.
TEST_F(NativeOrder, MakesTheArrayOfWepKeysBeforeTheLock) {
    EXPECT_EQ(steps(NATIVE(getWepKeys0), "other"), around("other", " string" + LOCK + UNLOCK));
    world.network().setWepKey(0, "key");
    EXPECT_EQ(steps(NATIVE(getWepKeys0), "home"),
              around("home", " string" + LOCK + " string" + UNLOCK));
}

// Natives for the state.

TEST_F(NativeOrder, HoldsTheLockForTheState) {
    EXPECT_EQ(steps(NATIVE(getNetworkStatus0), "home"), around("home", LOCK + UNLOCK));
    EXPECT_EQ(RecordedCall::stepsOf([&] {
                  NATIVE(getDaemonStatus0)(world.java.environment(), nullptr, nullptr);
              }),
              "+errors" + LOCK + UNLOCK + " -errors");
    world.answer("ssid=home\n");
    const std::string steps = stepsWith(NATIVE(getCurrentNetwork0), "wlan0");
    EXPECT_THAT(steps, StartsWith("+errors +wlan0" + LOCK));
    EXPECT_THAT(steps, EndsWith(" string" + UNLOCK + " -wlan0 -errors"));
}

// Natives for a whole operation, each of which fails or has nothing to do.

TEST_F(NativeOrder, LeavesTheLockOfAnOperationToTheOperation) {
    world.answer("FAIL\n", 255);
    const struct {
        const char* name;
        GetterNative<jboolean> native;
        const char* ssid;
    } operations[] = {
        {"connect", NATIVE(connectToNetwork0), "other"},
        {"disconnect", NATIVE(disconnectFromNetwork0), "other"},
        {"add", NATIVE(addNetwork0), "home"},
        {"remove", NATIVE(removeNetwork0), "other"},
    };
    for (const auto& operation : operations) {
        SCOPED_TRACE(operation.name);
        EXPECT_EQ(steps(operation.native, operation.ssid), around(operation.ssid, LOCK + UNLOCK));
    }
    EXPECT_EQ(stepsWith(NATIVE(roamNetworks0), "wlan0"),
              "+errors +wlan0" + LOCK + UNLOCK + " -wlan0 -errors");
    world.network().cleanDirtyFields();
    EXPECT_EQ(stepsWith(NATIVE(saveHostSettings0)),
              "+errors" + LOCK + " +list -list" + UNLOCK + " -errors");
}

TEST_F(NativeOrder, TakesNoLockForTheDriver) {
    world.answer("FAIL\n", 255);
    EXPECT_EQ(stepsWith(NATIVE(isWifiEnabled0), "wlan0"), "+errors +wlan0 -wlan0 -errors");
    EXPECT_EQ(RecordedCall::stepsOf([&] {
                  NATIVE(isWifiEnabled0)(world.java.environment(), nullptr, nullptr);
              }),
              "+errors -errors");
    EXPECT_EQ(stepsWith(NATIVE(hashCACertificates0)), "+errors -errors");
    EXPECT_EQ(stepsWith(NATIVE(discoverNetworks0), "wlan0"), "+errors +wlan0 -wlan0 -errors");
}

// Lists are copies: their Java strings need no lock.
TEST_F(NativeOrder, MakesTheStringsOfAListWithoutALock) {
    EXPECT_EQ(stepsWith(NATIVE(getWifiAdapters0)), "+errors string string -errors");
    EXPECT_EQ(stepsWith(NATIVE(getNetworkDatabaseSsids0), "wlan0"),
              "+errors +wlan0 +gate +list -list -gate string string -wlan0 -errors");
}

TEST_F(NativeOrder, MakesTheErrorHandlerAlsoForAnUnload) {
    const std::string steps = stepsWith(NATIVE(unloadWifiSettings0));
    EXPECT_THAT(steps, StartsWith("+errors +gate "));
    EXPECT_THAT(steps, EndsWith(" -gate -errors"));
    world.loseNetworks();
}

TEST_F(NativeOrder, ConvertsBeforeTheCipherOfJavaProgramsRuns) {
    EXPECT_EQ(stepsWith(Java_com_quorvel_platwifi_PlatformCrypt_encrypt0, "text"),
              "+errors +text encipher string -text -errors");
    EXPECT_EQ(stepsWith(Java_com_quorvel_platwifi_PlatformCrypt_decrypt0, "text"),
              "+errors +text decipher string -text -errors");
}

// The settings.

TEST_F(NativeOrder, ConvertsBeforeTheSettingsAreLoaded) {
    WifiHostSettings::unload();
    world.scriptLoad();
    const std::string steps = this->steps(NATIVE(getPriority0), "home");
    EXPECT_THAT(steps, StartsWith("+errors +wlan0 +home +gate "));
    EXPECT_THAT(steps, EndsWith(UNLOCK + " -home -wlan0 -errors"));
}

TEST_F(NativeOrder, IsTheSameIfAnotherThreadUnloadsMeanwhile) {
    world.scriptLoad();
    RecordedCall::at("+home", [] {
        ASSERT_EQ(RecordedCall::steps(), "+errors +wlan0") << "another thread could not unload";
        std::thread(WifiHostSettings::unload).join();
    });
    jboolean changed = JNI_FALSE;
    const std::string steps =
        RecordedCall::stepsOf([&] { changed = world.call(NATIVE(setProtocol0), "home", jint{2}); });
    EXPECT_EQ(changed, JNI_TRUE);
    EXPECT_EQ(world.network().getProtocol(), 2U) << "of the network that was loaded again";
    EXPECT_THAT(steps, EndsWith(UNLOCK + " -home -wlan0 -errors"));
}

// Exceptions.

class PassedThrough : public NativeOrder {
protected:
    std::string stepsWithoutMemoryAt(const std::string& step, const std::function<void()>& call) {
        RecordedCall::at(step, [] { throw std::bad_alloc(); });
        EXPECT_THROW(RecordedCall::stepsOf(call), std::bad_alloc);
        return RecordedCall::steps();
    }

    void write() { world.call(NATIVE(setPreferredBssid0), "home", world.javaText("value")); }
};

TEST_F(PassedThrough, ReleasesWhatWasConverted) {
    const auto call = [this] { write(); };
    EXPECT_EQ(stepsWithoutMemoryAt("+wlan0", call), "+errors -errors");
    EXPECT_EQ(stepsWithoutMemoryAt("+home", call), "+errors +wlan0 -wlan0 -errors");
    EXPECT_EQ(stepsWithoutMemoryAt("+value", call), "+errors +wlan0 +home -home -wlan0 -errors");
}

TEST_F(PassedThrough, ReleasesTheLock) {
    const auto read = [this] { world.call(NATIVE(getBssid0), "home"); };
    EXPECT_EQ(stepsWithoutMemoryAt("string", read), around("home", LOCK + UNLOCK));
    const auto readSecret = [this] { world.call(NATIVE(getPreSharedKey0), "home"); };
    EXPECT_EQ(stepsWithoutMemoryAt("string", readSecret),
              around("home", LOCK + " encipher" + UNLOCK));
}

} // namespace
