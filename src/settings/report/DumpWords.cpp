#include "settings/report/DumpWords.h"

#include "model/WifiTypes.h"

#include <cstddef>

namespace platwifi {
namespace {

struct Word {
    unsigned int number;
    const char* text;
};

constexpr const char* UNKNOWN = " UNKNOWN";

// clang-format off

// Flags, in the order in which they are printed.

constexpr Word PROTOCOLS[] = {
    {PROTOCOL_WPA, " WPA"},
    {PROTOCOL_RSN, " RSN"},
};

constexpr Word KEY_MANAGEMENTS[] = {
    {KEY_MGMT_NONE, " NONE"},
    {KEY_MGMT_WPA_EAP, " WPA_EAP"},
    {KEY_MGMT_WPA_PSK, " WPA_PSK"},
    {KEY_MGMT_WPA_NONE, " WPA_NONE"},
    {KEY_MGMT_IEEE8021X, " IEEE8021X"},
};

constexpr Word PAIRWISE_CIPHERS[] = {
    {PAIRWISE_TKIP, " TKIP"},
    {PAIRWISE_CCMP, " CCMP"},
    {PAIRWISE_NONE, " NONE"},
};

constexpr Word GROUP_CIPHERS[] = {
    {GROUP_TKIP, " TKIP"},
    {GROUP_CCMP, " CCMP"},
    {GROUP_WEP104, " WEP104"},
    {GROUP_WEP40, " WEP40"},
};

constexpr Word EAP_MODES[] = {
    {EAP_TLS, " TLS"},
    {EAP_PEAP, " PEAP"},
    {EAP_TTLS, " TTLS"},
    {EAP_MD5, " MD5"},
    {EAP_LEAP, " LEAP"},
    {EAP_MSCHAPV2, " MSCHAPV2"},
    {EAP_GTC, " GTC"},
    {EAP_OTP, " OTP"},
    {EAP_PSK, " PSK"},
    {EAP_FAST, " FAST"},
    {EAP_PAX, " PAX"},
};

// Values.

constexpr Word NETWORK_MODES[] = {
    {NETWORK_MODE_MANAGED, " MANAGED"},
    {NETWORK_MODE_ADHOC, " ADHOC"},
};

constexpr Word AUTH_ALGS[] = {
    {AUTH_ALG_UNKNOWN, UNKNOWN},
    {AUTH_ALG_OPEN, " OPEN"},
    {AUTH_ALG_SHARED, " SHARED"},
    {AUTH_ALG_LEAP, " LEAP"},
    {AUTH_ALG_AUTO, " AUTO"},
};

constexpr Word WPA_STATES[] = {
    {WPA_STATE_UNKNOWN, UNKNOWN},
    {WPA_STATE_DISCONNECTED, " DISCONNECTED"},
    {WPA_STATE_IDLE, " IDLE"},
    {WPA_STATE_SCANNING, " SCANNING"},
    {WPA_STATE_ASSOCIATING, " ASSOCIATING"},
    {WPA_STATE_ASSOCIATED, " ASSOCIATED"},
    {WPA_STATE_4WAY_HANDSHAKE, " 4-WAY HANDSHAKE"},
    {WPA_STATE_GROUP_HANDSHAKE, " GROUP HANDSHAKE"},
    {WPA_STATE_COMPLETED, " COMPLETED"},
};

// clang-format on

template <std::size_t SIZE>
std::string wordsOf(unsigned int set, const Word (&words)[SIZE]) {
    std::string text = set == 0 ? UNKNOWN : "";
    for (const Word& word : words)
        text += set & word.number ? word.text : "";
    return text;
}

template <std::size_t SIZE>
std::string wordOf(unsigned int value, const Word (&words)[SIZE], const char* otherwise) {
    for (const Word& word : words) {
        if (word.number == value)
            return word.text;
    }
    return otherwise;
}

} // namespace

std::string protocolWords(unsigned int set) {
    return wordsOf(set, PROTOCOLS);
}

std::string keyManagementWords(unsigned int set) {
    return wordsOf(set, KEY_MANAGEMENTS);
}

std::string pairwiseWords(unsigned int set) {
    return wordsOf(set, PAIRWISE_CIPHERS);
}

std::string groupWords(unsigned int set) {
    return wordsOf(set, GROUP_CIPHERS);
}

std::string eapModeWords(unsigned int set) {
    return wordsOf(set, EAP_MODES);
}

std::string networkModeWord(unsigned int value) {
    return wordOf(value, NETWORK_MODES, UNKNOWN);
}

std::string authAlgWord(unsigned int value) {
    return wordOf(value, AUTH_ALGS, "");
}

std::string wpaStateWord(unsigned int value) {
    return wordOf(value, WPA_STATES, "");
}

} // namespace platwifi
