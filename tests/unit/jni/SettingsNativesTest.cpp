#include "settings/WifiHostSettings.h"

#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "supplicant/WifiUtil.h"

#include "support/FakeJni.h"
#include "unit/settings/LoadedSettings.h"
#include "unit/settings/RecordedLocks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <jni.h>
#include <string>

#define NATIVE(method) Java_com_quorvel_platwifi_BWifiPlatformService_##method

extern "C" {
jboolean NATIVE(connectToNetwork0)(JNIEnv*, jclass, jstring, jstring);
jboolean NATIVE(disconnectFromNetwork0)(JNIEnv*, jclass, jstring, jstring);
jboolean NATIVE(addNetwork0)(JNIEnv*, jclass, jstring, jstring);
jboolean NATIVE(removeNetwork0)(JNIEnv*, jclass, jstring, jstring);
jboolean NATIVE(roamNetworks0)(JNIEnv*, jclass, jstring);
jboolean NATIVE(unloadWifiSettings0)(JNIEnv*, jclass);
jobjectArray NATIVE(getWifiAdapters0)(JNIEnv*, jclass);
jobjectArray NATIVE(getNetworkDatabaseSsids0)(JNIEnv*, jclass, jstring);
}

using test::Commands;
using test::FakeJni;
using test::ssidsOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n";
const std::string AT_HOME = "ssid=home\nwpa_state=COMPLETED\n";

class SettingsNatives : public testing::Test {
protected:
    ~SettingsNatives() override {
        EXPECT_EQ(java.heldCharacters(), 0U);
        EXPECT_FALSE(java.pendingException());
    }

    jstring text(const char* characters) {
        return characters ? java.javaString(characters) : nullptr;
    }

    FakeJni::Elements ssids(const char* iface = "wlan0") {
        return java.elementsOf(
            NATIVE(getNetworkDatabaseSsids0)(java.environment(), nullptr, text(iface)));
    }

    FakeJni java;
    test::LoadedSettings loaded;
};

using NetworkNative = jboolean (*)(JNIEnv*, jclass, jstring, jstring);

struct Operation {
    const char* name;
    NetworkNative native;
    const char* ssid;
    const char* command; // the first
    bool ofAnUnknownOne;
};

const Operation OPERATIONS[] = {
    {"Connect", NATIVE(connectToNetwork0), "work", "-iwlan0 select 3", false},
    {"Disconnect", NATIVE(disconnectFromNetwork0), "work", "-iwlan0 disconnect", true},
    {"Add", NATIVE(addNetwork0), "new", "-iwlan0 add_network", true},
    {"Remove", NATIVE(removeNetwork0), "work", "-iwlan0 remove_network 3", true},
};

class NativeOfOneNetwork : public SettingsNatives, public testing::WithParamInterface<Operation> {
protected:
    jboolean run(const char* iface, const char* ssid) {
        return GetParam().native(java.environment(), nullptr, text(iface), text(ssid));
    }
};

TEST_P(NativeOfOneNetwork, IsTrueWhenTheOperationSucceeds) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    EXPECT_EQ(run("wlan0", GetParam().ssid), JNI_TRUE);
    EXPECT_EQ(loaded.commands().at(0), GetParam().command);
}

TEST_P(NativeOfOneNetwork, IsFalseWhenTheOperationFails) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("FAIL\n", 1);
    EXPECT_EQ(run("wlan0", GetParam().ssid), JNI_FALSE);
    EXPECT_THAT(loaded.commands(), ElementsAre(GetParam().command));
    EXPECT_EQ(run("fourteen-chars", GetParam().ssid), JNI_FALSE);
    EXPECT_EQ(run(nullptr, GetParam().ssid), JNI_FALSE);
    EXPECT_EQ(loaded.commands().size(), 1U);
}

TEST_P(NativeOfOneNetwork, TakesANullSsidForAnUnknownOne) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    const bool cannotBeMade = GetParam().native == NATIVE(addNetwork0);
    const bool expected = GetParam().ofAnUnknownOne && !cannotBeMade;
    EXPECT_EQ(run("wlan0", nullptr), expected ? JNI_TRUE : JNI_FALSE);
    EXPECT_EQ(run(nullptr, nullptr), expected ? JNI_TRUE : JNI_FALSE);
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_P(NativeOfOneNetwork, HandsOnAnySsid) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    const std::string longSsid(200, 's');
    for (const char* const ssid : {"unknown", longSsid.c_str(), "\xed\xa0\xbd\xed\xb8\x80"})
        EXPECT_EQ(run("wlan0", ssid), GetParam().ofAnUnknownOne ? JNI_TRUE : JNI_FALSE);
}

TEST_P(NativeOfOneNetwork, LoadsTheSettingsWhereThereAreNone) {
    loaded.scriptLoad(NETWORKS);
    run("wlan0", "unknown");
    EXPECT_THAT(loaded.commands(), testing::Contains("-iwlan0 list_networks"));
}

INSTANTIATE_TEST_SUITE_P(Every, NativeOfOneNetwork, testing::ValuesIn(OPERATIONS),
                         [](const auto& test) { return std::string(test.param.name); });

// The virtual machine writes U+1F600 as two surrogates and the lone byte E9 as U+DCE9.
TEST_F(SettingsNatives, AddNetworksOfAnySsid) {
    loaded.load("");
    loaded.standIn.on({"-iwlan0", "add_network"}).prints("1\n");
    loaded.answer("OK\n");
    const auto add = [this](const char* ssid) {
        return NATIVE(addNetwork0)(java.environment(), nullptr, text("wlan0"), text(ssid));
    };
    EXPECT_EQ(add("\xed\xa0\xbd\xed\xb8\x80"), JNI_TRUE);
    EXPECT_EQ(loaded.commands().at(1), "-iwlan0 set_network 1 ssid \"\xf0\x9f\x98\x80\"");
    EXPECT_EQ(add("caf\xed\xb3\xa9"), JNI_TRUE);
    EXPECT_EQ(loaded.commands().at(4), "-iwlan0 set_network 1 ssid \"caf\xe9\"");
    EXPECT_EQ(add("caf\xed\xb3\xa9"), JNI_FALSE) << "it is there";
    EXPECT_THAT(ssids(), ElementsAre("caf\xed\xb3\xa9", "\xed\xa0\xbd\xed\xb8\x80"));
}

TEST_F(SettingsNatives, Roam) {
    loaded.load("3\twork\tany\t\n");
    loaded.standIn.on({"-iwlan0", "reassociate"}).prints("OK\n").then().prints("FAIL\n");
    loaded.answer("OK\n");
    const auto roam = [this](const char* iface) {
        return NATIVE(roamNetworks0)(java.environment(), nullptr, text(iface));
    };
    EXPECT_EQ(roam("wlan0"), JNI_TRUE);
    EXPECT_THAT(loaded.commands(),
                ElementsAre("-iwlan0 disconnect", "-iwlan0 set_network 3 disabled 0",
                            "-iwlan0 reassociate"));
    EXPECT_EQ(roam("wlan0"), JNI_FALSE);
    EXPECT_EQ(roam(nullptr), JNI_FALSE);
    EXPECT_EQ(roam("fourteen-chars"), JNI_FALSE);
}

TEST_F(SettingsNatives, ListTheAdapters) {
    loaded.adapters = "wlan0\nwlan\xe9\nwlan2\n";
    loaded.load(NETWORKS);
    EXPECT_THAT(java.elementsOf(NATIVE(getWifiAdapters0)(java.environment(), nullptr)),
                ElementsAre("wlan0", "wlan\xed\xb3\xa9"));
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.fail();
    EXPECT_THAT(java.elementsOf(NATIVE(getWifiAdapters0)(java.environment(), nullptr)), IsEmpty());
}

TEST_F(SettingsNatives, ListTheSsids) {
    loaded.load(NETWORKS);
    for (const char* const iface : {"wlan0", "fourteen-chars", static_cast<const char*>(nullptr)})
        EXPECT_THAT(ssids(iface), ElementsAre("work", "home"));
    loaded.load("");
    EXPECT_THAT(ssids(), IsEmpty());
    loaded.fail();
    EXPECT_THAT(ssids(), IsEmpty());
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(SettingsNatives, ListNoMoreThan32Ssids) {
    WifiHostSettings& settings = loaded.load("");
    loaded.answer("1\n");
    for (int i = 0; i <= 32; ++i)
        EXPECT_TRUE(settings.addNetwork("wlan0", ("n" + std::to_string(i)).c_str()));
    const FakeJni::Elements listed = ssids();
    EXPECT_EQ(listed.size(), 32U);
    EXPECT_EQ(listed.front(), "n32");
    EXPECT_EQ(listed.back(), "n1");
}

// OP-7
TEST_F(SettingsNatives, ListNoSsidsWhenANetworkHasNone) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    const test::SettingsMutexes mutexes(settings);
    {
        const platwifi::SettingsLock lock(settings);
        settings.getNetwork("wlan0", "home")->setSsid(nullptr);
    }
    EXPECT_EQ(NATIVE(getNetworkDatabaseSsids0)(java.environment(), nullptr, text("wlan0")),
              nullptr);
    for (PlatformMutex* const mutex : mutexes.all)
        EXPECT_TRUE(test::isFree(mutex))
            << "another thread of the virtual machine would wait for it";
}

TEST_F(SettingsNatives, UnloadTheSettingsWithoutMakingThem) {
    const auto unload = [this] { return NATIVE(unloadWifiSettings0)(java.environment(), nullptr); };
    loaded.answer("");
    EXPECT_EQ(unload(), JNI_TRUE);
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.load(NETWORKS);
    EXPECT_EQ(unload(), JNI_TRUE);
    EXPECT_EQ(unload(), JNI_TRUE);
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.scriptLoad("0\tother\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("other")) << "loaded anew";
}

} // namespace
