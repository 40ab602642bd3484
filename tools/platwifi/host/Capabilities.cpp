#include "host/Capabilities.h"

#include "client/Question.h"
#include "display/Text.h"
#include "host/BestSecurity.h"
#include "model/Vocabulary.h"
#include "values/Failure.h"

namespace cli {
namespace {

using namespace platwifi;

// What the supplicant lists if it can do it. It can do WPA-PSK-SHA256, WPA-EAP-SHA256 and FT-SAE without
// listing them.
constexpr unsigned int LISTED_METHODS =
    KEY_MGMT_SAE | KEY_MGMT_OWE | KEY_MGMT_FT_PSK | KEY_MGMT_FT_EAP | KEY_MGMT_SUITE_B_192;
constexpr unsigned int LISTED_CIPHERS = PAIRWISE_GCMP | PAIRWISE_GCMP_256 | PAIRWISE_CCMP_256;

bool hasWord(const std::string& list, const std::string& word) {
    return (' ' + list + ' ').find(' ' + word + ' ') != std::string::npos;
}

// A supplicant that lists nothing may be able to do it.
bool isCapable(const std::string& iface, const char* kind, const std::string& word) {
    const std::string list = askSupplicant(iface, "get_capability", kind);
    return list.empty() || list == "FAIL" || hasWord(list, word);
}

void requireEach(const std::string& iface, const char* kind, unsigned int set, Words words) {
    for (const Word& word : words) {
        if ((set & word.number) == 0 || isCapable(iface, kind, word.text))
            continue;
        throw Failure(printable(iface) + " cannot do " + word.text +
                      ", nothing was changed: its driver or the supplicant lacks it; choose "
                      "another word, platwifi scan shows the security of each access point");
    }
}

} // namespace

// FT-SAE is not listed, and needs SAE.
unsigned int capableMethods(const std::string& iface) {
    const std::string list = askSupplicant(iface, "get_capability", "key_mgmt");
    if (list.empty() || list == "FAIL")
        return ALL_METHODS;
    const unsigned int listed = wholeWordsIn(list.c_str(), KEY_MANAGEMENT_WORDS);
    const unsigned int missing = LISTED_METHODS & ~listed;
    return ~((missing & KEY_MGMT_SAE) != 0 ? missing | KEY_MGMT_FT_SAE : missing);
}

void requireCapabilities(const std::string& iface, unsigned int keyManagement,
                         unsigned int ciphers) {
    requireEach(iface, "key_mgmt", keyManagement & LISTED_METHODS, KEY_MANAGEMENT_WORDS);
    requireEach(iface, "pairwise", ciphers & LISTED_CIPHERS, PAIRWISE_WORDS);
}

} // namespace cli
