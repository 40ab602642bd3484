// What wpa_supplicant 2.10 keeps in its file, and what not: tests/supplicant/RenumberingTest.cpp asks it.

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

// ID-2
TEST(KeyState, OfALoadedNetwork) {
    struct Row {
        const char* methods;
        bool mayBeLeftOutWithoutKey;
        bool mayBeLeftOutWithKey;
    };
    const Row rows[] = {
        {nullptr, true, false}, // it was refused: the file will not hold any
        {"WPA-PSK WPA-EAP", true, false},
        {"WPA-PSK", true, false},
        {"WPA-PSK-SHA256", true, false},
        {"FT-PSK", true, false},
        {"NONE WPA-PSK", true, false},
        {"SAE", true, true},
        {"WPA-PSK SAE", true, true},
        {"FT-SAE", true, true},
        {"WPS", true, true},
        {"WPA-PSK WPS", true, true},
        {"NONE", false, false},
        {"WPA-EAP", false, false},
        {"WPA-EAP IEEE8021X", false, false},
        {"IEEE8021X", false, false},
        {"WPA-NONE", false, false},
        {"OWE", false, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.methods ? row.methods : "none");
        EXPECT_EQ(loaded(row.methods, nullptr).mayBeLeftOut(), row.mayBeLeftOutWithoutKey);
        EXPECT_EQ(loaded(row.methods, "*").mayBeLeftOut(), row.mayBeLeftOutWithKey);
    }
}

// Nothing is known then; a network that is written is known again.
TEST(KeyState, OfANetworkWithoutAnyValueSaysThatItStays) {
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

TEST(KeyState, PassesOverOtherFields) {
    KeyState state = loaded("WPA-PSK", nullptr);
    for (const char* const key : {"ssid", "password", "wep_key0", "psk2", "key_mgmt2"})
        state.written(key, "NONE", true);
    EXPECT_TRUE(state.mayBeLeftOut());
}

} // namespace
