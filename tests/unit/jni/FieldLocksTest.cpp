// The locks of the natives for one field of one network.

#include "FieldNatives.h"

#include "unit/settings/RecordedLocks.h"

using namespace test;

#define READS(Result, method) Result NATIVE(method)(JNIEnv*, jclass, jstring, jstring);
#define WRITES(Value, method) jboolean NATIVE(method)(JNIEnv*, jclass, jstring, jstring, Value);

WRITES(jstring, setSsid0)

extern "C" {
READS(jint, getPriority0)
READS(jboolean, getSsidBroadcasted0)
READS(jstring, getBssid0)
READS(jstring, getPreSharedKey0)
WRITES(jstring, setPreferredBssid0)
WRITES(jstring, setPreSharedKey0)
WRITES(jint, setProtocol0)
WRITES(jint, setPriority0)
WRITES(jboolean, setSsidBroadcasted0)
WRITES(jint, setEncryption0)
WRITES(jint, setWepIndex0)
jboolean NATIVE(setWepKey0)(JNIEnv*, jclass, jstring, jstring, jint, jstring);
}

namespace {

struct Family {
    const char* name;
    void (*call)(OneNetwork& world, const char* ssid);
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
    world.call(NATIVE_METHOD, ssid, world.javaText(""));
}

void writeFlag(OneNetwork& world, const char* ssid) {
    world.call(NATIVE(setSsidBroadcasted0), ssid, jboolean{JNI_TRUE});
}

void writeWepKey(OneNetwork& world, const char* ssid) {
    world.call(NATIVE(setWepKey0), ssid, jint{1}, world.javaText("key"));
}

const Family FAMILIES[] = {
    {"reads a number", read<NATIVE(getPriority0)>},
    {"reads a flag", read<NATIVE(getSsidBroadcasted0)>},
    {"reads a text", read<NATIVE(getBssid0)>},
    {"reads a secret", read<NATIVE(getPreSharedKey0)>},
    {"writes a text", writeText<NATIVE(setPreferredBssid0)>},
    {"writes a secret", writeText<NATIVE(setPreSharedKey0)>},
    {"writes the SSID", writeText<NATIVE(setSsid0)>},
    {"writes a number", writeNumber<NATIVE(setProtocol0)>},
    {"writes a byte", writeNumber<NATIVE(setPriority0)>},
    {"writes a flag", writeFlag},
    {"writes the ciphers", writeNumber<NATIVE(setEncryption0)>},
    {"writes the WEP index", writeNumber<NATIVE(setWepIndex0)>},
    {"writes a WEP key", writeWepKey},
};

class FieldLocks : public testing::Test {
protected:
    OneNetwork world;
    const SettingsMutexes mutexes{world.settings()};
};

TEST_F(FieldLocks, AreHeldByEachFamilyOfNatives) {
    for (const Family& family : FAMILIES) {
        SCOPED_TRACE(family.name);
        for (const char* const ssid : {"other", "home"}) {
            const LockEvents events = eventsOf([&] { family.call(world, ssid); });
            EXPECT_TRUE(mutexes.pairIsHeldThroughout(events)) << ssid;
        }
    }
}

// Another thread could free the characters once the locks are given back.
TEST_F(FieldLocks, AreHeldWhileTheJavaStringOfATextIsMade) {
    world.network().setBssid("02:00:00:00:01:00");
    int strings = 0;
    world.java.atEveryString([&] {
        ++strings;
        EXPECT_TRUE(mutexes.pairIsHeld());
    });
    world.call(NATIVE(getBssid0), "home");
    EXPECT_EQ(strings, 1);
}

} // namespace
