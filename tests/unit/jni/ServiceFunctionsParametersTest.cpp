// The functions that take named properties.

#include "jni/ServiceFunctions.h"

#include "model/WifiNetwork.h"

#include "support/KeyWorld.h"
#include "unit/model/NetworkRows.h"
#include "unit/settings/LoadedSettings.h"
#include "unit/settings/RecordedLocks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<const char*>;

namespace {

class LoadedNetworks {
protected:
    LoadedNetworks() : settings(&loaded.load("0\thome\tany\t\n1\twork\tany\t\n")) {
        network().cleanDirtyFields();
    }

    WifiNetwork& network() { return *settings->getNetwork("wlan0", "home"); }

    int set(Texts names, Texts values, const char* ssid = "home") {
        EXPECT_EQ(names.size(), values.size());
        return setNetworkParameters(&errors, "wlan0", ssid, names.data(), values.data(),
                                    static_cast<unsigned int>(names.size()));
    }

    test::LoadedSettings loaded;
    WifiHostSettings* settings;
    ErrorHandler errors;
};

class ServiceParameters : public LoadedNetworks, public testing::Test {};
class SecretParameters : public LoadedNetworks, public test::KeyWorld {};

TEST_F(ServiceParameters, ChangeTheNetworkInMemoryOnly) {
    EXPECT_EQ(set({"channel", "priority", "eapIdentity"}, {"11", "300", "me"}), 1);
    EXPECT_EQ(network().getChannel(), 11U);
    EXPECT_EQ(network().getPriority(), 300U) << "not cut";
    EXPECT_STREQ(network().getEAPIdentity(), "me");
    EXPECT_THAT(test::dirtyOf(network()), ElementsAre("EAPIdentity", "channel", "priority"));
    EXPECT_THAT(test::dirtyOf(*settings->getNetwork("wlan0", "work")), IsEmpty());
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(ServiceParameters, ApplyThemInOrder) {
    EXPECT_EQ(set({"priority", "priority", "encryption", "encryption"}, {"1", "2", "6", "8"}), 1);
    EXPECT_EQ(network().getPriority(), 2U);
    EXPECT_EQ(network().getPairwiseCiphers(), 4U);
    EXPECT_EQ(network().getGroupCiphers(), 8U);
}

TEST_F(SecretParameters, ContinueAfterOneThatIsSkippedOrFails) {
    network().setPsk("before");
    EXPECT_EQ(set({"nonsense", nullptr, "psk", "ssid", "SSID", "", "index", "priority"},
                  {"1", "2", "in plain", "villa", "villa", "3", "9", "4"}),
              1);
    EXPECT_EQ(network().getPriority(), 4U);
    EXPECT_STREQ(network().getPsk(), "before");
    ASSERT_NE(errors.savedError(), nullptr);
    EXPECT_STREQ(errors.savedError()->id(), "crypt.damaged");
    EXPECT_EQ(settings->getNetwork("wlan0", "villa"), nullptr);
}

TEST_F(SecretParameters, DecipherSecrets) {
    EXPECT_EQ(set({"psk"}, {test::encrypted("correct horse").text->c_str()}), 1);
    EXPECT_STREQ(network().getPsk(), "correct horse");
    EXPECT_EQ(set({"psk"}, {""}), 1);
    EXPECT_EQ(network().getPsk(), nullptr);
    EXPECT_EQ(errors.savedError(), nullptr);
}

TEST_F(ServiceParameters, SucceedWithoutAnyPair) {
    const char* const one[] = {"priority"};
    const char* const value[] = {"5"};
    EXPECT_EQ(set({}, {}), 1);
    EXPECT_EQ(setNetworkParameters(nullptr, nullptr, "home", one, value, 0), 1);
    EXPECT_EQ(setNetworkParameters(nullptr, "wlan0", "home", nullptr, nullptr, 1), 1);
    EXPECT_EQ(setNetworkParameters(nullptr, "wlan0", "home", one, nullptr, 1), 1);
    EXPECT_EQ(setNetworkParameters(nullptr, "wlan0", "home", nullptr, value, 1), 1);
    EXPECT_THAT(test::dirtyOf(network()), IsEmpty());
}

TEST_F(ServiceParameters, TakeNullForAValue) {
    network().setEAPIdentity("me");
    network().setPriority(5);
    EXPECT_EQ(set({"eapIdentity", "priority", "nonsense", nullptr, "psk", "ssidBroadcasted"},
                  {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr}),
              1);
    EXPECT_EQ(network().getEAPIdentity(), nullptr);
    EXPECT_EQ(network().getPriority(), 0U);
}

TEST_F(ServiceParameters, FailWithoutTheNetwork) {
    for (const char* const ssid : {"other", "", "Home", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(set({"psk"}, {"in plain"}, ssid), 0);
        EXPECT_EQ(set({}, {}, ssid), 0);
    }
    EXPECT_EQ(errors.savedError(), nullptr) << "deciphered for nothing";
    settings = &loaded.fail();
    EXPECT_EQ(set({"priority"}, {"5"}), 0);
}

// API-8
TEST_F(ServiceParameters, HoldOneLockFromTheLookupToTheLastProperty) {
    const test::SettingsMutexes mutexes(*settings);
    test::LockEvents expected = mutexes.taking();
    const test::LockEvents released = mutexes.givingBack();
    expected.insert(expected.end(), released.begin(), released.end());
    EXPECT_EQ(test::eventsOf([this] {
                  set({"priority", "psk", "no"}, {"5", "in plain", "1"});
              }),
              expected);
    EXPECT_EQ(test::eventsOf([this] { set({"priority"}, {"5"}, "other"); }), expected);
    EXPECT_EQ(test::eventsOf([] { setHostParameters(nullptr, nullptr, nullptr, nullptr, 0); }),
              expected);
    for (PlatformMutex* const mutex : mutexes.all)
        EXPECT_TRUE(test::isFree(mutex));
}

// API-8
TEST_F(ServiceParameters, OfTheHostChangeNothing) {
    const char* const names[] = {"wifiEnabled", "WifiEnabled", nullptr, "priority"};
    const char* const values[] = {"false", "true", nullptr, "5"};
    EXPECT_EQ(setHostParameters(&errors, "wlan0", names, values, 4), 1);
    EXPECT_EQ(setHostParameters(nullptr, nullptr, nullptr, nullptr, 3), 1);
    EXPECT_EQ(setHostParameters(nullptr, nullptr, names, nullptr, 4), 1);
    EXPECT_EQ(setHostParameters(nullptr, nullptr, names, values, 0), 1);
    EXPECT_THAT(test::dirtyOf(network()), IsEmpty());
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.fail();
    EXPECT_EQ(setHostParameters(nullptr, "wlan0", names, values, 4), 1) << "there is an instance";
}

TEST_F(ServiceParameters, LoadTheSettingsIfThereAreNone) {
    EXPECT_EQ(stopWifiService(nullptr), 1);
    loaded.scriptLoad("0\tother\tany\t\n");
    EXPECT_EQ(set({}, {}, "other"), 1);
    EXPECT_EQ(set({}, {}, "home"), 0);
    EXPECT_EQ(stopWifiService(nullptr), 1);
    loaded.scriptLoad("0\tother\tany\t\n");
    EXPECT_EQ(setHostParameters(nullptr, nullptr, nullptr, nullptr, 0), 1);
    EXPECT_THAT(loaded.commands(), testing::Contains("-iwlan0 list_networks"));
}

} // namespace
