#include "settings/replies/ValueWords.h"

#include "model/WifiTypes.h"

#include <gtest/gtest.h>

using namespace platwifi;

namespace {

struct Row {
    const char* value;
    unsigned int meaning;
};

template <typename Rows>
void expectRows(unsigned int (*meaningOf)(const char*), const Rows& rows) {
    for (const Row& row : rows)
        EXPECT_EQ(meaningOf(row.value), row.meaning) << row.value;
}

// LOAD-16
TEST(KeyManagementWord, IsTheFirstInOrder) {
    const Row rows[] = {
        {"WPA-NONE", KEY_MGMT_WPA_NONE},
        {"NONE", KEY_MGMT_NONE},
        {"WPA-EAP", KEY_MGMT_WPA_EAP},
        {"WPA-PSK", KEY_MGMT_WPA_PSK},
        {"IEEE8021X", KEY_MGMT_IEEE8021X},
        {"NONE WPA-NONE", KEY_MGMT_WPA_NONE},
        {"WPA-EAP NONE", KEY_MGMT_NONE},
        {"WPA-PSK WPA-EAP", KEY_MGMT_WPA_EAP},
        {"IEEE8021X WPA-PSK", KEY_MGMT_WPA_PSK},
        {"WPA-PSK-SHA256", KEY_MGMT_WPA_PSK},
        {"xIEEE8021Xx", KEY_MGMT_IEEE8021X},
        {"SAE", 0},
        {"wpa-psk", 0},
        {"WPA", 0},
        {"", 0},
    };
    expectRows(keyManagementIn, rows);
}

// LOAD-16
TEST(EapModeWord, IsTheFirstInOrder) {
    const Row rows[] = {
        {"TTLS", EAP_TTLS},
        {"TLS", EAP_TLS},
        {"PEAP", EAP_PEAP},
        {"LEAP", EAP_LEAP},
        {"MD5", EAP_MD5},
        {"MSCHAPV2", EAP_MSCHAPV2},
        {"GTC", EAP_GTC},
        {"OTP", EAP_OTP},
        {"PSK", EAP_PSK},
        {"PAX", EAP_PAX},
        {"FAST", EAP_FAST},
        // each word with the one before it
        {"TLS TTLS", EAP_TTLS},
        {"PEAP TLS", EAP_TLS},
        {"LEAP PEAP", EAP_PEAP},
        {"MD5 LEAP", EAP_LEAP},
        {"MSCHAPV2 MD5", EAP_MD5},
        {"GTC MSCHAPV2", EAP_MSCHAPV2},
        {"OTP GTC", EAP_GTC},
        {"PSK OTP", EAP_OTP},
        {"PAX PSK", EAP_PSK},
        {"FAST PAX", EAP_PAX},
        {"PWD", 0},
        {"tls", 0},
        {"", 0},
    };
    expectRows(eapModeIn, rows);
}

// LOAD-18
TEST(AuthAlgWord, IsTheFirstInOrderOrElseAuto) {
    const Row rows[] = {
        {"OPEN", AUTH_ALG_OPEN},          {"SHARED", AUTH_ALG_SHARED},
        {"LEAP", AUTH_ALG_LEAP},          {"SHARED OPEN", AUTH_ALG_OPEN},
        {"LEAP SHARED", AUTH_ALG_SHARED}, {"FILS", AUTH_ALG_AUTO},
        {"open", AUTH_ALG_AUTO},          {"", AUTH_ALG_AUTO},
    };
    expectRows(authAlgIn, rows);
}

// LOAD-16
TEST(PairwiseWords, AllCount) {
    const Row rows[] = {
        {"TKIP", PAIRWISE_TKIP},
        {"CCMP", PAIRWISE_CCMP},
        {"NONE", PAIRWISE_NONE},
        {"CCMP TKIP", PAIRWISE_CCMP | PAIRWISE_TKIP},
        {"NONE CCMP TKIP", PAIRWISE_NONE | PAIRWISE_CCMP | PAIRWISE_TKIP},
        {"GCMP", 0},
        {"", 0},
    };
    expectRows(pairwiseCiphersIn, rows);
}

// LOAD-16
TEST(GroupWords, AllCount) {
    const Row rows[] = {
        {"TKIP", GROUP_TKIP},
        {"CCMP", GROUP_CCMP},
        {"WEP104", GROUP_WEP104},
        {"WEP40", GROUP_WEP40},
        {"CCMP TKIP WEP104 WEP40", GROUP_CCMP | GROUP_TKIP | GROUP_WEP104 | GROUP_WEP40},
        {"WEP40 TKIP", GROUP_WEP40 | GROUP_TKIP},
        {"WEP", 0},
        {"NONE", 0},
        {"", 0},
    };
    expectRows(groupCiphersIn, rows);
}

// LOAD-16
TEST(ProtocolWords, AllCount) {
    const Row rows[] = {
        {"WPA", PROTOCOL_WPA},  {"RSN", PROTOCOL_RSN}, {"WPA RSN", PROTOCOL_WPA | PROTOCOL_RSN},
        {"WPA2", PROTOCOL_WPA}, {"OSEN", 0},           {"", 0},
    };
    expectRows(protocolsIn, rows);
}

} // namespace
