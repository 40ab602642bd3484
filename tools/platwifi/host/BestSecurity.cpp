#include "host/BestSecurity.h"

#include "host/ScanFlags.h"
#include "model/Vocabulary.h"

namespace cli {
namespace {

// How an access point protects a network. WPA is its first version, RSN means WPA2 and WPA3.
enum Protection { RSN, WPA, WEP, OPEN };

// What one access point offers by each of them: kinds of key management. NONE stands for WEP and for an open
// network.
struct Offer {
    unsigned int methods[OPEN + 1] = {};
};

constexpr unsigned int SAE = platwifi::SAE_METHODS;
constexpr unsigned int PSK = platwifi::PSK_METHODS;
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

Offer offerOf(const std::string& flags) {
    const ScanFlags offered = ScanFlags::of(flags);
    Offer offer;
    offer.methods[RSN] = offered.rsn | (offered.hasOweBeside ? KEY_MGMT_OWE : 0U);
    offer.methods[WPA] = offered.wpa;
    offer.methods[WEP] = offered.isWep ? KEY_MGMT_NONE : 0U;
    offer.methods[OPEN] = offered.isOpen() ? KEY_MGMT_NONE : 0U;
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

Security securityBy(const Row& row, unsigned int methods) {
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
    return chosen ? std::optional(securityBy(*chosen, methods)) : std::nullopt;
}

} // namespace

std::vector<std::string> securityNames() {
    std::vector<std::string> names;
    for (const Row& row : ROWS)
        names.emplace_back(row.name);
    return names;
}

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

} // namespace cli
