#include "model/WifiTypes.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

// Callers, documents and stored settings carry these numbers. That the supplicant's states have
// theirs is pinned with the reply that names them.
TEST(WifiTypes, HaveTheirNumbers) {
    struct Row {
        const char* name;
        unsigned int value;
        unsigned int expected;
    };
    const Row rows[] = {
        {"PROTOCOL_WPA", PROTOCOL_WPA, 0x1},
        {"PROTOCOL_RSN", PROTOCOL_RSN, 0x2},
        {"KEY_MGMT_NONE", KEY_MGMT_NONE, 0x1},
        {"KEY_MGMT_WPA_PSK", KEY_MGMT_WPA_PSK, 0x2},
        {"KEY_MGMT_WPA_EAP", KEY_MGMT_WPA_EAP, 0x4},
        {"KEY_MGMT_IEEE8021X", KEY_MGMT_IEEE8021X, 0x8},
        {"KEY_MGMT_WPA_NONE", KEY_MGMT_WPA_NONE, 0x10},
        {"PAIRWISE_NONE", PAIRWISE_NONE, 0x1},
        {"PAIRWISE_TKIP", PAIRWISE_TKIP, 0x2},
        {"PAIRWISE_CCMP", PAIRWISE_CCMP, 0x4},
        {"GROUP_TKIP", GROUP_TKIP, 0x2},
        {"GROUP_CCMP", GROUP_CCMP, 0x4},
        {"GROUP_WEP104", GROUP_WEP104, 0x8},
        {"GROUP_WEP40", GROUP_WEP40, 0x10},
        {"EAP_TLS", EAP_TLS, 0x1},
        {"EAP_PEAP", EAP_PEAP, 0x2},
        {"EAP_TTLS", EAP_TTLS, 0x4},
        {"EAP_MD5", EAP_MD5, 0x8},
        {"EAP_LEAP", EAP_LEAP, 0x10},
        {"EAP_MSCHAPV2", EAP_MSCHAPV2, 0x20},
        {"EAP_GTC", EAP_GTC, 0x40},
        {"EAP_OTP", EAP_OTP, 0x80},
        {"EAP_PSK", EAP_PSK, 0x100},
        {"EAP_PAX", EAP_PAX, 0x200},
        {"EAP_FAST", EAP_FAST, 0x400},
        {"AUTH_ALG_UNKNOWN", AUTH_ALG_UNKNOWN, 0},
        {"AUTH_ALG_OPEN", AUTH_ALG_OPEN, 1},
        {"AUTH_ALG_SHARED", AUTH_ALG_SHARED, 2},
        {"AUTH_ALG_LEAP", AUTH_ALG_LEAP, 3},
        {"AUTH_ALG_AUTO", AUTH_ALG_AUTO, 4},
        {"NETWORK_MODE_MANAGED", NETWORK_MODE_MANAGED, 0},
        {"NETWORK_MODE_ADHOC", NETWORK_MODE_ADHOC, 1},
        {"NETWORK_MODE_UNKNOWN", NETWORK_MODE_UNKNOWN, 2},
        {"NETWORK_STATUS_UNKNOWN", NETWORK_STATUS_UNKNOWN, 0},
        {"NETWORK_STATUS_ENABLED", NETWORK_STATUS_ENABLED, 1},
        {"NETWORK_STATUS_CONNECTED", NETWORK_STATUS_CONNECTED, 3},
        {"NETWORK_STATUS_CONNECTING", NETWORK_STATUS_CONNECTING, 4},
        {"NETWORK_STATUS_DISABLED", NETWORK_STATUS_DISABLED, 5},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.value, row.expected) << row.name;
}

template <typename Enumeration, typename Number>
constexpr bool isStoredAs = std::is_same_v<std::underlying_type_t<Enumeration>, Number>;

TEST(WifiTypes, AreOfAFixedWidth) {
    static_assert(sizeof(unsigned int) == 4);
    EXPECT_TRUE((isStoredAs<Protocol, unsigned int>));
    EXPECT_TRUE((isStoredAs<KeyManagement, unsigned int>));
    EXPECT_TRUE((isStoredAs<PairwiseCipher, unsigned int>));
    EXPECT_TRUE((isStoredAs<GroupCipher, unsigned int>));
    EXPECT_TRUE((isStoredAs<EapMode, unsigned int>));
    EXPECT_TRUE((isStoredAs<AuthAlg, unsigned int>));
    EXPECT_TRUE((isStoredAs<NetworkMode, unsigned char>));
    EXPECT_TRUE((isStoredAs<NetworkStatus, unsigned int>));
    EXPECT_TRUE((isStoredAs<WpaState, unsigned int>));
}

} // namespace
