// What wpa_supplicant 2.10 writes to its file, and what not; tests/supplicant/RenumberingTest.cpp asks it.

#include "settings/KeyState.h"

#include <gtest/gtest.h>

using platwifi::KeyState;

namespace {

KeyState loaded(const char* methods, const char* psk) {
    KeyState state = KeyState::beforeLoad();
    state.read("disabled", "0");
    state.read("key_mgmt", methods);
    state.read("psk", psk);
    state.read("identity", "me");
    return state;
}

void expectLeftOut(const char* methods, bool withoutKey, bool withKey) {
    SCOPED_TRACE(methods ? methods : "none");
    EXPECT_EQ(loaded(methods, nullptr).mayBeLeftOut(), withoutKey);
    EXPECT_EQ(loaded(methods, "*").mayBeLeftOut(), withKey);
}

// Without a key management there is one that was refused: the file will not have any.
// ID-2
TEST(KeyState, OfALoadedNetwork) {
    for (const char* const methods : {static_cast<const char*>(nullptr), "WPA-PSK WPA-EAP",
                                      "WPA-PSK", "WPA-PSK-SHA256", "FT-PSK", "NONE WPA-PSK"})
        expectLeftOut(methods, true, false);
    for (const char* const methods : {"SAE", "WPA-PSK SAE", "FT-SAE", "WPS", "WPA-PSK WPS"})
        expectLeftOut(methods, true, true);
    for (const char* const methods :
         {"NONE", "WPA-EAP", "WPA-EAP IEEE8021X", "IEEE8021X", "WPA-NONE", "OWE"})
        expectLeftOut(methods, false, false);
}

// Nothing is known then; a network that is written is known again.
TEST(KeyState, OfANetworkWithoutAnyValueIsThatItStays) {
    KeyState state = KeyState::beforeLoad();
    for (const char* const key : {"disabled", "key_mgmt", "psk"})
        state.read(key, nullptr);
    EXPECT_FALSE(state.mayBeLeftOut());
    state.written("priority", "5", true);
    EXPECT_FALSE(state.mayBeLeftOut());
    state.written("key_mgmt", "WPA-PSK", true);
    EXPECT_TRUE(state.mayBeLeftOut());
}

TEST(KeyState, OfANewNetworkNeedsAKey) {
    KeyState state;
    EXPECT_TRUE(state.mayBeLeftOut());
    state.written("psk", "long enough", true);
    EXPECT_FALSE(state.mayBeLeftOut());
}

TEST(KeyState, FollowsTheKeyManagementThatIsWritten) {
    KeyState state = loaded("WPA-PSK", nullptr);
    state.written("key_mgmt", "NONE", true);
    EXPECT_FALSE(state.mayBeLeftOut());
    state.written("key_mgmt", "WPA-PSK", true);
    EXPECT_TRUE(state.mayBeLeftOut());
    state.written("key_mgmt", "WPA-EAP", true);
    EXPECT_FALSE(state.mayBeLeftOut());
    state.written("key_mgmt", "BOGUS", false);
    EXPECT_TRUE(state.mayBeLeftOut()) << "the supplicant has none, and takes the default later";
}

TEST(KeyState, KeepsTheKeyOverOneThatIsRefused) {
    KeyState state = loaded("WPA-PSK", nullptr);
    state.written("psk", "short", false);
    EXPECT_TRUE(state.mayBeLeftOut());
    state = loaded("WPA-PSK", "*");
    state.written("psk", "\"\"", false);
    EXPECT_FALSE(state.mayBeLeftOut());
}

TEST(KeyState, IgnoresOtherFields) {
    KeyState state = loaded("WPA-PSK", nullptr);
    for (const char* const key : {"ssid", "password", "wep_key0", "psk2", "key_mgmt2"})
        state.written(key, "NONE", true);
    EXPECT_TRUE(state.mayBeLeftOut());
}

} // namespace
