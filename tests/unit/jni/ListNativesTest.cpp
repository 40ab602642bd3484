// Natives that return lists: adapters, SSIDs, WEP keys.

#include "OneNetwork.h"
#include "TwoNetworks.h"

#include "settings/WifiHostSettings.h"
#include "unit/settings/RecordedLocks.h"

#include <gmock/gmock.h>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ListNatives : public NativeCaller, public testing::Test {
protected:
    FakeJni::Elements ssids(const char* iface = "wlan0") {
        return elements("getNetworkDatabaseSsids0", {iface});
    }

    LoadedSettings loaded;
};

TEST_F(ListNatives, ListTheAdapters) {
    loaded.adapters = "wlan0\nwlan\xe9\nwlan2\n";
    loaded.load(NETWORKS);
    EXPECT_THAT(elements("getWifiAdapters0"), ElementsAre("wlan0", "wlan\xed\xb3\xa9"));
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.fail();
    EXPECT_THAT(elements("getWifiAdapters0"), IsEmpty());
}

TEST_F(ListNatives, ListTheSsids) {
    loaded.load(NETWORKS);
    for (const char* const iface : {"wlan0", "fourteen-chars", static_cast<const char*>(nullptr)})
        EXPECT_THAT(ssids(iface), ElementsAre("work", "home"));
    loaded.load("");
    EXPECT_THAT(ssids(), IsEmpty());
    loaded.fail();
    EXPECT_THAT(ssids(), IsEmpty());
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(ListNatives, ListNoMoreThan32Ssids) {
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
TEST_F(ListNatives, ListNoSsidsIfANetworkHasNone) {
    WifiHostSettings& settings = loaded.load(NETWORKS);
    const SettingsMutexes mutexes(settings);
    {
        const platwifi::SettingsLock lock(settings);
        settings.getNetwork("wlan0", "home")->setSsid(nullptr);
    }
    EXPECT_EQ(object("getNetworkDatabaseSsids0"), nullptr);
    for (PlatformMutex* const mutex : mutexes.all)
        EXPECT_TRUE(isFree(mutex)) << "another thread of the virtual machine would wait for it";
}

class WepKeys : public OneNetwork, public testing::Test {
protected:
    FakeJni::Elements keys(const char* ssid = "home") {
        return elements("getWepKeys0", {"wlan0", ssid});
    }

    bool keysAreNull() { return object("getWepKeys0", {"wlan0", "home"}) == nullptr; }
};

// TEXT-2
TEST_F(WepKeys, AreInPlainAndInTheOrderOfTheirSlots) {
    network().setWepKey(1, "second");
    network().setWepKey(3, "caf\xe9");
    EXPECT_THAT(keys(), ElementsAre("", "second", "", "caf\xed\xb3\xa9"));
    for (unsigned int slot = 0; slot < 4; ++slot)
        network().setWepKey(slot, std::to_string(slot).c_str());
    EXPECT_THAT(keys(), ElementsAre("0", "1", "2", "3"));
}

TEST_F(WepKeys, AreFourEmptyTextsWithoutTheNetwork) {
    network().setWepKey(0, "key");
    for (const char* const ssid : {"other", "", static_cast<const char*>(nullptr)})
        EXPECT_THAT(keys(ssid), ElementsAre("", "", "", ""));
    loseNetworks();
    EXPECT_THAT(keys(), ElementsAre("", "", "", ""));
}

TEST_F(WepKeys, AreNullIfTheVirtualMachineHasNoMemory) {
    network().setWepKey(0, "key");
    for (int successes = 0; successes < 2; ++successes) {
        java.failCall(FakeJni::Call::NewStringUTF, successes);
        EXPECT_TRUE(keysAreNull());
        EXPECT_TRUE(java.pendingException());
        java.catchException();
    }
}

TEST_F(WepKeys, AreMadeBeforeTheSettingsAreUsed) {
    WifiHostSettings::unload();
    java.failCall(FakeJni::Call::NewObjectArray);
    EXPECT_TRUE(keysAreNull());
    java.catchException();
    EXPECT_THAT(commands(), IsEmpty()) << "nothing was loaded";
    loseNetworks();
}

} // namespace
