#include "host/BestSecurity.h"

#include "model/Vocabulary.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace cli {
namespace {

// What the client prints for a kind of key management. A longer word goes before a shorter one that it begins
// with.
struct Method {
    const char* flag;
    unsigned int keyManagement;
};

constexpr unsigned int UNKNOWN_METHOD = 0;

constexpr Method METHODS[] = {
    {"PSK-SHA256", KEY_MGMT_WPA_PSK_SHA256},
    {"PSK", KEY_MGMT_WPA_PSK},
    {"FT/PSK", KEY_MGMT_FT_PSK},
    {"SAE-EXT-KEY", UNKNOWN_METHOD},
    {"SAE", KEY_MGMT_SAE},
    {"FT/SAE", KEY_MGMT_FT_SAE},
    {"EAP-SUITE-B-192", KEY_MGMT_SUITE_B_192},
    {"EAP-SUITE-B", UNKNOWN_METHOD},
    {"EAP-SHA256", KEY_MGMT_WPA_EAP_SHA256},
    {"EAP", KEY_MGMT_WPA_EAP},
    {"FT/EAP", KEY_MGMT_FT_EAP},
    {"OWE", KEY_MGMT_OWE},
};

// How an access point protects a network. WPA is its first version, RSN means WPA2 and WPA3.
enum Protection { RSN, WPA, WEP, OPEN };

// What one access point offers by each of them: kinds of key management. NONE stands for WEP and for an open
// network.
struct Offer {
    unsigned int methods[OPEN + 1] = {};
};

struct Prefix {
    const char* text;
    Protection protection;
};

constexpr Prefix PREFIXES[] = {{"WPA2-", RSN}, {"RSN-", RSN}, {"WPA-", WPA}};

constexpr const char* WEP_FLAG = "WEP";
// Of an open access point: another one in range, with a hidden name, offers OWE for the same network.
constexpr const char* OWE_TRANSITION_FLAG = "OWE-TRANS-OPEN";

constexpr unsigned int SAE = KEY_MGMT_SAE | KEY_MGMT_FT_SAE;
constexpr unsigned int PSK = KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_PSK_SHA256 | KEY_MGMT_FT_PSK;
constexpr unsigned int EAP = KEY_MGMT_WPA_EAP | KEY_MGMT_WPA_EAP_SHA256 | KEY_MGMT_FT_EAP;

struct Row {
    const char* name;
    Protection protection;
    unsigned int needed;   // the access point offers one of these
    unsigned int unwanted; // and none of these
    unsigned int allowed;  // the network is allowed to use those of these that are offered
    Credentials credentials;
    const char* properties[2]; // beside key_mgmt
};

constexpr auto KEY = Credentials::KEY;
constexpr auto LOGIN = Credentials::LOGIN;

// The best first. Protection of management frames is required where every device with this security has it.
// `protocol` keeps a network with WPA2 from an access point with WPA alone.
// clang-format off
constexpr Row ROWS[] = {
    {"WPA3-Enterprise-192", RSN, KEY_MGMT_SUITE_B_192, 0, KEY_MGMT_SUITE_B_192, LOGIN, {"pmf=required", "encryption=GCMP-256"}},
    {"WPA3-SAE", RSN, SAE, PSK, SAE, KEY, {"pmf=required"}},
    {"WPA2-PSK/WPA3-SAE", RSN, SAE, 0, SAE | PSK, KEY, {"pmf=optional"}},
    {"WPA2-Enterprise", RSN, EAP, 0, EAP, LOGIN, {"pmf=optional", "protocol=RSN"}},
    {"WPA2-PSK", RSN, PSK, 0, PSK, KEY, {"pmf=optional", "protocol=RSN"}},
    {"WPA-Enterprise", WPA, EAP, 0, EAP, LOGIN, {}},
    {"WPA-PSK", WPA, PSK, 0, PSK, KEY, {}},
    {"OWE", RSN, KEY_MGMT_OWE, 0, KEY_MGMT_OWE, Credentials::NONE, {"pmf=required"}},
    {"WEP", WEP, KEY_MGMT_NONE, 0, KEY_MGMT_NONE, Credentials::WEP_KEY, {}},
    {"open", OPEN, KEY_MGMT_NONE, 0, KEY_MGMT_NONE, Credentials::NONE, {}},
};
// clang-format on

bool beginsWith(const std::string& text, const std::string& beginning) {
    return text.rfind(beginning, 0) == 0;
}

// The method at the beginning of a word such as "PSK-CCMP": ciphers follow behind a hyphen.
unsigned int methodOf(const std::string& word) {
    for (const Method& method : METHODS) {
        if (word == method.flag || beginsWith(word, std::string(method.flag) + '-'))
            return method.keyManagement;
    }
    return UNKNOWN_METHOD;
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char character : text) {
        if (character == separator)
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

unsigned int methodsOf(const std::string& words) {
    unsigned int methods = 0;
    for (const std::string& word : split(words, '+'))
        methods |= methodOf(word);
    return methods;
}

void addFlag(const std::string& flag, Offer& offer) {
    if (flag == WEP_FLAG)
        offer.methods[WEP] = KEY_MGMT_NONE;
    if (flag == OWE_TRANSITION_FLAG)
        offer.methods[RSN] = KEY_MGMT_OWE;
    for (const Prefix& prefix : PREFIXES) {
        if (beginsWith(flag, prefix.text))
            offer.methods[prefix.protection] |= methodsOf(flag.substr(std::strlen(prefix.text)));
    }
}

bool isProtection(const std::string& flag) {
    return flag == WEP_FLAG ||
           std::any_of(std::begin(PREFIXES), std::end(PREFIXES),
                       [&](const Prefix& prefix) { return beginsWith(flag, prefix.text); });
}

// Of flags such as "[WPA2-PSK+SAE-CCMP][ESS]".
Offer offerOf(const std::string& flags) {
    Offer offer;
    offer.methods[OPEN] = KEY_MGMT_NONE;
    for (const std::string& piece : split(flags, '[')) {
        const std::string flag = piece.substr(0, piece.find(']'));
        addFlag(flag, offer);
        if (isProtection(flag))
            offer.methods[OPEN] = 0;
    }
    return offer;
}

bool isOffered(const Row& row, const Offer& offer, unsigned int capable) {
    const unsigned int methods = offer.methods[row.protection] & capable;
    return (methods & row.needed) != 0 && (methods & row.unwanted) == 0;
}

bool fits(const Row& row, std::optional<Credentials> given) {
    return !given || row.credentials == *given;
}

const Row* firstRow(const Offer& offer, unsigned int capable, std::optional<Credentials> given) {
    for (const Row& row : ROWS) {
        if (fits(row, given) && isOffered(row, offer, capable))
            return &row;
    }
    return nullptr;
}

Security securityOf(const Row& row, unsigned int methods) {
    Security security{row.name, {}, row.credentials};
    security.properties.push_back("key_mgmt=" +
                                  platwifi::wordsIn(methods, platwifi::KEY_MANAGEMENT_WORDS));
    for (const char* const property : row.properties) {
        if (property)
            security.properties.emplace_back(property);
    }
    return security;
}

// The row that comes first counts, with the methods of all access points that have it.
std::optional<Security> best(const std::vector<std::string>& flags, unsigned int capable,
                             std::optional<Credentials> given) {
    const Row* chosen = nullptr;
    unsigned int methods = 0;
    for (const std::string& each : flags) {
        const Offer offer = offerOf(each);
        const Row* const row = firstRow(offer, capable, given);
        if (!row || (chosen && row > chosen))
            continue;
        methods = (row == chosen ? methods : 0U) |
                  (offer.methods[row->protection] & row->allowed & capable);
        chosen = row;
    }
    return chosen ? std::optional(securityOf(*chosen, methods)) : std::nullopt;
}

} // namespace

std::optional<Security> bestSecurity(const std::vector<std::string>& flags, unsigned int capable,
                                     std::optional<Credentials> given) {
    const auto fitting = best(flags, capable, given);
    return fitting || !given ? fitting : best(flags, capable, std::nullopt);
}

Credentials credentialsFor(unsigned int keyManagement) {
    Offer offer;
    offer.methods[RSN] = keyManagement;
    const Row* const row = firstRow(offer, ALL_METHODS, std::nullopt);
    return row ? row->credentials : Credentials::NONE;
}

unsigned int methodsIn(const std::string& flags) {
    unsigned int methods = 0;
    for (const unsigned int some : offerOf(flags).methods)
        methods |= some;
    return methods;
}

} // namespace cli
