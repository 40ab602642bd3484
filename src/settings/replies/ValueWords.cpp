#include "settings/replies/ValueWords.h"

#include "model/Vocabulary.h"

namespace platwifi {
namespace {

// The order in which words are looked for: a word that holds another one comes before it. Of several
// methods in one value the first in this order is kept. Where all methods are read, whole words are compared.
// clang-format off

constexpr auto KEY_MANAGEMENT_SEARCH = inOrder(KEY_MANAGEMENT_WORDS, {
    KEY_MGMT_WPA_NONE, // WPA-NONE holds NONE
    KEY_MGMT_NONE,
    KEY_MGMT_WPA_EAP,
    KEY_MGMT_WPA_PSK,
    KEY_MGMT_IEEE8021X,
});

constexpr auto EAP_SEARCH = inOrder(EAP_WORDS, {
    EAP_TTLS, // TTLS holds TLS
    EAP_TLS,
    EAP_PEAP,
    EAP_LEAP,
    EAP_MD5,
    EAP_MSCHAPV2,
    EAP_GTC,
    EAP_OTP,
    EAP_PSK,
    EAP_PAX,
    EAP_FAST,
});

// clang-format on

} // namespace

unsigned int keyManagementIn(const char* value) {
    if (rule::TODAYS_SECURITY_IS_KNOWN())
        return wholeWordsIn(value, KEY_MANAGEMENT_WORDS);
    return firstIn(value, KEY_MANAGEMENT_SEARCH);
}

unsigned int eapModeIn(const char* value) {
    if (rule::SETS_ARE_WRITTEN_WHOLE())
        return wholeWordsIn(value, EAP_WORDS);
    return firstIn(value, EAP_SEARCH);
}

unsigned int authAlgIn(const char* value) {
    const unsigned int algorithm = firstIn(value, AUTH_ALG_WORDS);
    return algorithm != 0 ? algorithm : AUTH_ALG_AUTO;
}

unsigned int pairwiseCiphersIn(const char* value) {
    if (rule::TODAYS_SECURITY_IS_KNOWN())
        return wholeWordsIn(value, PAIRWISE_WORDS);
    return allIn(value, knownPairwise());
}

unsigned int groupCiphersIn(const char* value) {
    if (rule::TODAYS_SECURITY_IS_KNOWN())
        return wholeWordsIn(value, GROUP_WORDS);
    return allIn(value, knownGroup());
}

unsigned int protocolsIn(const char* value) {
    return allIn(value, PROTOCOL_WORDS);
}

} // namespace platwifi
