#include "settings/report/DumpWords.h"

#include "model/Vocabulary.h"

namespace platwifi {
namespace {

// quirk: DUMP-5. The dump prints the flags of a set in fixed orders of its own: neither in that of the bits
// nor in that of the command line.
// clang-format off

constexpr auto KEY_MANAGEMENT_ORDER = inOrder(KEY_MANAGEMENT_WORDS, {
    KEY_MGMT_NONE,
    KEY_MGMT_WPA_EAP,
    KEY_MGMT_WPA_PSK,
    KEY_MGMT_WPA_NONE,
    KEY_MGMT_IEEE8021X,
});

constexpr auto PAIRWISE_ORDER = inOrder(PAIRWISE_WORDS, {
    PAIRWISE_TKIP,
    PAIRWISE_CCMP,
    PAIRWISE_NONE,
});

constexpr auto GROUP_ORDER = inOrder(GROUP_WORDS, {
    GROUP_TKIP,
    GROUP_CCMP,
    GROUP_WEP104,
    GROUP_WEP40,
});

constexpr auto EAP_ORDER = inOrder(EAP_WORDS, {
    EAP_TLS,
    EAP_PEAP,
    EAP_TTLS,
    EAP_MD5,
    EAP_LEAP,
    EAP_MSCHAPV2,
    EAP_GTC,
    EAP_OTP,
    EAP_PSK,
    EAP_FAST,
    EAP_PAX,
});

// clang-format on

std::string spaced(const char* word) {
    return std::string(" ") + word;
}

std::string wordsOf(unsigned int set, Words words) {
    if (set == 0)
        return spaced(UNKNOWN_WORD);
    std::string text;
    for (const Word& word : words) {
        if (set & word.number)
            text += spaced(word.dumpText);
    }
    return text;
}

std::string wordOf(unsigned int value, Words words) {
    const Word* const word = wordFor(words, value);
    return word ? spaced(word->dumpText) : "";
}

} // namespace

std::string protocolWords(unsigned int set) {
    return wordsOf(set, PROTOCOL_WORDS);
}

std::string keyManagementWords(unsigned int set) {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? wordsOf(set, KEY_MANAGEMENT_WORDS)
                                            : wordsOf(set, KEY_MANAGEMENT_ORDER);
}

std::string pairwiseWords(unsigned int set) {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? wordsOf(set, PAIRWISE_WORDS)
                                            : wordsOf(set, PAIRWISE_ORDER);
}

std::string groupWords(unsigned int set) {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? wordsOf(set, GROUP_WORDS) : wordsOf(set, GROUP_ORDER);
}

std::string eapModeWords(unsigned int set) {
    return wordsOf(set, EAP_ORDER);
}

std::string networkModeWord(unsigned int value) {
    const std::string word = wordOf(value, MODE_WORDS);
    return word.empty() ? spaced(UNKNOWN_WORD) : word;
}

std::string pmfWord(unsigned int value) {
    return wordOf(value, PMF_WORDS);
}

// The supplicant has a word for neither UNKNOWN nor AUTO.
std::string authAlgWord(unsigned int value) {
    switch (value) {
    case AUTH_ALG_UNKNOWN:
        return spaced(UNKNOWN_WORD);
    case AUTH_ALG_AUTO:
        return spaced("AUTO");
    default:
        return wordOf(value, AUTH_ALG_WORDS);
    }
}

std::string wpaStateWord(unsigned int value) {
    return value == WPA_STATE_UNKNOWN ? spaced(UNKNOWN_WORD) : wordOf(value, STATE_WORDS);
}

} // namespace platwifi
