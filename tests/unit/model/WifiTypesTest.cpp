#include "model/WifiTypes.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

// Callers, documents and stored settings have these numbers. The numbers of the supplicant's states are
// tested with its status reply.
TEST(WifiTypes, HaveTheirNumbers) {
#define NAMED(constant) #constant, constant
    const struct {
        const char* name;
        unsigned int value;
        unsigned int expected;
    } rows[] = {
        {NAMED(PROTOCOL_WPA), 0x1},
        {NAMED(PROTOCOL_RSN), 0x2},
        {NAMED(KEY_MGMT_NONE), 0x1},
        {NAMED(KEY_MGMT_WPA_PSK), 0x2},
        {NAMED(KEY_MGMT_WPA_EAP), 0x4},
        {NAMED(KEY_MGMT_IEEE8021X), 0x8},
        {NAMED(KEY_MGMT_WPA_NONE), 0x10},
        {NAMED(PAIRWISE_NONE), 0x1},
        {NAMED(PAIRWISE_TKIP), 0x2},
        {NAMED(PAIRWISE_CCMP), 0x4},
        {NAMED(GROUP_TKIP), 0x2},
        {NAMED(GROUP_CCMP), 0x4},
        {NAMED(GROUP_WEP104), 0x8},
        {NAMED(GROUP_WEP40), 0x10},
        {NAMED(EAP_TLS), 0x1},
        {NAMED(EAP_PEAP), 0x2},
        {NAMED(EAP_TTLS), 0x4},
        {NAMED(EAP_MD5), 0x8},
        {NAMED(EAP_LEAP), 0x10},
        {NAMED(EAP_MSCHAPV2), 0x20},
        {NAMED(EAP_GTC), 0x40},
        {NAMED(EAP_OTP), 0x80},
        {NAMED(EAP_PSK), 0x100},
        {NAMED(EAP_PAX), 0x200},
        {NAMED(EAP_FAST), 0x400},
        {NAMED(AUTH_ALG_UNKNOWN), 0},
        {NAMED(AUTH_ALG_OPEN), 1},
        {NAMED(AUTH_ALG_SHARED), 2},
        {NAMED(AUTH_ALG_LEAP), 3},
        {NAMED(AUTH_ALG_AUTO), 4},
        {NAMED(NETWORK_MODE_MANAGED), 0},
        {NAMED(NETWORK_MODE_ADHOC), 1},
        {NAMED(NETWORK_MODE_UNKNOWN), 2},
        {NAMED(NETWORK_STATUS_UNKNOWN), 0},
        {NAMED(NETWORK_STATUS_ENABLED), 1},
        {NAMED(NETWORK_STATUS_CONNECTED), 3},
        {NAMED(NETWORK_STATUS_CONNECTING), 4},
        {NAMED(NETWORK_STATUS_DISABLED), 5},
    };
    for (const auto& row : rows)
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
