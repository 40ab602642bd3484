// The order in which each kind of native makes its error handler, converts its strings, takes the locks and
// makes Java strings, and in which it releases all that.

#include "OneNetwork.h"
#include "RecordedCall.h"
#include "support/TestTime.h"

#include "support/FieldTable.h"

#include <gmock/gmock.h>

#include <new>

using namespace test;
using testing::EndsWith;
using testing::StartsWith;

extern "C" {
jstring Java_com_quorvel_platwifi_PlatformCrypt_encrypt0(JNIEnv*, jclass, jstring);
jstring Java_com_quorvel_platwifi_PlatformCrypt_decrypt0(JNIEnv*, jclass, jstring);
}

namespace {

const std::string LOCK = " +list +state";
const std::string UNLOCK = " -state -list";

// The steps of a native for this network, with these in the middle.
std::string around(const std::string& ssid, const std::string& steps) {
    return "+errors +wlan0 +" + ssid + steps + " -" + ssid + " -wlan0 -errors";
}

struct StandingClock {
    const TestTime time{[](TestTime& t) { t.clockIs(1000000); }}; // the status is never due
};

// The clock comes first: it has to stand before the settings are loaded.
class NativeOrder : private StandingClock, public OneNetwork, public testing::Test {
protected:
    NativeOrder() {
        for (const FieldRow& row : fieldRows()) {
            if (isText(row) && row.getter)
                fields().setText(row.field, row.name);
        }
        network().cleanDirtyFields();
        java.atEveryString([] { RecordedCall::note("string"); });
    }

    // The steps of a native that gets this for each value it takes.
    std::string steps(const std::string& native, const char* ssid = nullptr,
                      const char* iface = "wlan0") {
        return RecordedCall::stepsOf([&] {
            call(native, {iface, ssid, "value", jint{2}, JNI_TRUE});
        });
    }

    const RecordedCall recorded{settings()};
};

// Natives for one field.

struct Kind {
    const char* native;
    const char* locked; // the steps under the lock, if there is such a network
    bool hasText;       // a Java string behind the SSID
};

std::vector<Kind> fieldNatives() {
    std::vector<Kind> kinds = {{"getSupportedEncrytptionMethods0", "", false},
                               {"setEncryption0", "", false},
                               {"setWepKey0", "", true}};
    for (const FieldRow& row : fieldRows()) {
        const char* const read = isEnciphered(row) ? " encipher string" : " string";
        if (row.getter)
            kinds.push_back({row.getter, isText(row) ? read : "", false});
        if (row.setter)
            kinds.push_back({row.setter, isEnciphered(row) ? " decipher" : "", isText(row)});
    }
    kinds.push_back({"setSsid0", "", true}); // the last one: it renames the network
    return kinds;
}

std::string stepsOf(const Kind& kind, const std::string& ssid, const std::string& locked) {
    const std::string inner = LOCK + locked + UNLOCK;
    return around(ssid, kind.hasText ? " +value" + inner + " -value" : inner);
}

TEST_F(NativeOrder, IsConvertLockAndReleaseInReverseForAField) {
    for (const Kind& kind : fieldNatives()) {
        SCOPED_TRACE(kind.native);
        EXPECT_EQ(steps(kind.native, "other"), stepsOf(kind, "other", ""));
        EXPECT_EQ(steps(kind.native, "home"), stepsOf(kind, "home", kind.locked));
    }
}

// The array of empty strings is also the result if there is no such network.
TEST_F(NativeOrder, MakesTheArrayOfWepKeysBeforeTheLock) {
    EXPECT_EQ(steps("getWepKeys0", "other"), around("other", " string" + LOCK + UNLOCK));
    network().setWepKey(0, "key");
    EXPECT_EQ(steps("getWepKeys0", "home"), around("home", " string" + LOCK + " string" + UNLOCK));
}

// Natives for the state.

TEST_F(NativeOrder, HoldsTheLockForTheState) {
    EXPECT_EQ(steps("getDaemonStatus0", nullptr, nullptr), "+errors" + LOCK + UNLOCK + " -errors");
    answer("ssid=home\n");
    const std::string seen = steps("getCurrentNetwork0");
    EXPECT_THAT(seen, StartsWith("+errors +wlan0" + LOCK));
    EXPECT_THAT(seen, EndsWith(" string" + UNLOCK + " -wlan0 -errors"));
}

// Natives for a whole operation, each of which fails or has nothing to do.

TEST_F(NativeOrder, LeavesTheLockOfAnOperationToTheOperation) {
    answer("FAIL\n", 255);
    const struct {
        const char* native;
        const char* ssid;
    } operations[] = {{"connectToNetwork0", "other"},
                      {"disconnectFromNetwork0", "other"},
                      {"addNetwork0", "home"},
                      {"removeNetwork0", "other"}};
    for (const auto& operation : operations) {
        SCOPED_TRACE(operation.native);
        EXPECT_EQ(steps(operation.native, operation.ssid), around(operation.ssid, LOCK + UNLOCK));
    }
    EXPECT_EQ(steps("roamNetworks0"), "+errors +wlan0" + LOCK + UNLOCK + " -wlan0 -errors");
    EXPECT_EQ(steps("saveHostSettings0"), "+errors" + LOCK + " +list -list" + UNLOCK + " -errors");
}

TEST_F(NativeOrder, TakesNoLockForTheDriver) {
    answer("FAIL\n", 255);
    EXPECT_EQ(steps("isWifiEnabled0"), "+errors +wlan0 -wlan0 -errors");
    EXPECT_EQ(steps("isWifiEnabled0", nullptr, nullptr), "+errors -errors");
    EXPECT_EQ(steps("hashCACertificates0"), "+errors -errors");
    EXPECT_EQ(steps("discoverNetworks0"), "+errors +wlan0 -wlan0 -errors");
}

// Lists are copies: their Java strings need no lock.
TEST_F(NativeOrder, MakesTheStringsOfAListWithoutALock) {
    EXPECT_EQ(steps("getWifiAdapters0"), "+errors string string -errors");
    EXPECT_EQ(steps("getNetworkDatabaseSsids0"),
              "+errors +wlan0 +list -list string string -wlan0 -errors");
}

TEST_F(NativeOrder, MakesTheErrorHandlerAlsoForAnUnload) {
    const std::string seen = steps("unloadWifiSettings0");
    EXPECT_THAT(seen, StartsWith("+errors +list "));
    EXPECT_THAT(seen, EndsWith(" -list -errors"));
    loseNetworks();
}

TEST_F(NativeOrder, ConvertsBeforeTheCipherOfJavaProgramsRuns) {
    const auto stepsOfCipher = [this](jstring (*native)(JNIEnv*, jclass, jstring)) {
        return RecordedCall::stepsOf(
            [&] { native(java.environment(), nullptr, java.javaString("text")); });
    };
    EXPECT_EQ(stepsOfCipher(Java_com_quorvel_platwifi_PlatformCrypt_encrypt0),
              "+errors +text encipher string -text -errors");
    EXPECT_EQ(stepsOfCipher(Java_com_quorvel_platwifi_PlatformCrypt_decrypt0),
              "+errors +text decipher string -text -errors");
}

// The settings.

TEST_F(NativeOrder, ConvertsBeforeTheSettingsAreLoaded) {
    WifiHostSettings::unload();
    scriptLoad();
    const std::string seen = steps("getPriority0", "home");
    EXPECT_THAT(seen, StartsWith("+errors +wlan0 +home +list "));
    EXPECT_THAT(seen, EndsWith(UNLOCK + " -home -wlan0 -errors"));
}

TEST_F(NativeOrder, IsTheSameIfAnotherThreadUnloadsMeanwhile) {
    scriptLoad();
    RecordedCall::at("+home", [] {
        ASSERT_EQ(RecordedCall::steps(), "+errors +wlan0") << "another thread could not unload";
        std::thread(WifiHostSettings::unload).join();
    });
    const std::string seen = steps("setProtocol0", "home");
    EXPECT_EQ(network().getProtocol(), 2U) << "of the network that was loaded again";
    EXPECT_THAT(seen, EndsWith(UNLOCK + " -home -wlan0 -errors"));
}

// Exceptions.

class PassedThrough : public NativeOrder {
protected:
    std::string stepsWithoutMemoryAt(const std::string& step, const std::string& native) {
        RecordedCall::at(step, [] { throw std::bad_alloc(); });
        EXPECT_THROW(steps(native, "home"), std::bad_alloc);
        return RecordedCall::steps();
    }
};

TEST_F(PassedThrough, ReleasesWhatWasConverted) {
    const char* const native = "setPreferredBssid0";
    EXPECT_EQ(stepsWithoutMemoryAt("+wlan0", native), "+errors -errors");
    EXPECT_EQ(stepsWithoutMemoryAt("+home", native), "+errors +wlan0 -wlan0 -errors");
    EXPECT_EQ(stepsWithoutMemoryAt("+value", native), "+errors +wlan0 +home -home -wlan0 -errors");
}

TEST_F(PassedThrough, ReleasesTheLock) {
    EXPECT_EQ(stepsWithoutMemoryAt("string", "getBssid0"), around("home", LOCK + UNLOCK));
    EXPECT_EQ(stepsWithoutMemoryAt("string", "getPreSharedKey0"),
              around("home", LOCK + " encipher" + UNLOCK));
}

} // namespace
