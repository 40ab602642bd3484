#include "settings/replies/ValueWords.h"

#include "model/WifiTypes.h"

#include <cstddef>
#include <cstring>

namespace platwifi {
namespace {

struct ValueWord {
    const char* text;
    unsigned int meaning;
};

// clang-format off

// The first word found counts: those that are part of others come after them.

constexpr ValueWord KEY_MANAGEMENTS[] = {
    {"WPA-NONE", KEY_MGMT_WPA_NONE}, // before NONE
    {"NONE", KEY_MGMT_NONE},
    {"WPA-EAP", KEY_MGMT_WPA_EAP},
    {"WPA-PSK", KEY_MGMT_WPA_PSK},
    {"IEEE8021X", KEY_MGMT_IEEE8021X},
};

constexpr ValueWord EAP_MODES[] = {
    {"TTLS", EAP_TTLS}, // before TLS
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
};

constexpr ValueWord AUTH_ALGS[] = {
    {"OPEN", AUTH_ALG_OPEN},
    {"SHARED", AUTH_ALG_SHARED},
    {"LEAP", AUTH_ALG_LEAP},
    {"", AUTH_ALG_AUTO}, // anything else
};

// Every word found counts.

constexpr ValueWord PAIRWISE_CIPHERS[] = {
    {"TKIP", PAIRWISE_TKIP},
    {"CCMP", PAIRWISE_CCMP},
    {"NONE", PAIRWISE_NONE},
};

constexpr ValueWord GROUP_CIPHERS[] = {
    {"TKIP", GROUP_TKIP},
    {"CCMP", GROUP_CCMP},
    {"WEP104", GROUP_WEP104},
    {"WEP40", GROUP_WEP40},
};

constexpr ValueWord PROTOCOLS[] = {
    {"WPA", PROTOCOL_WPA},
    {"RSN", PROTOCOL_RSN},
};

// clang-format on

template <std::size_t SIZE>
unsigned int firstIn(const char* value, const ValueWord (&words)[SIZE]) {
    for (const ValueWord& word : words) {
        if (std::strstr(value, word.text))
            return word.meaning;
    }
    return 0;
}

template <std::size_t SIZE>
unsigned int allIn(const char* value, const ValueWord (&words)[SIZE]) {
    unsigned int set = 0;
    for (const ValueWord& word : words) {
        if (std::strstr(value, word.text))
            set |= word.meaning;
    }
    return set;
}

} // namespace

unsigned int keyManagementIn(const char* value) {
    return firstIn(value, KEY_MANAGEMENTS);
}

unsigned int eapModeIn(const char* value) {
    return firstIn(value, EAP_MODES);
}

unsigned int authAlgIn(const char* value) {
    return firstIn(value, AUTH_ALGS);
}

unsigned int pairwiseCiphersIn(const char* value) {
    return allIn(value, PAIRWISE_CIPHERS);
}

unsigned int groupCiphersIn(const char* value) {
    return allIn(value, GROUP_CIPHERS);
}

unsigned int protocolsIn(const char* value) {
    return allIn(value, PROTOCOLS);
}

} // namespace platwifi
