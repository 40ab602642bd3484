#include "settings/report/SecurityType.h"

#include "Profile.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"

#include <cstddef>

namespace platwifi {
namespace {

constexpr unsigned int PSK_OR_EAP = KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_EAP;

bool isOpen(const WifiNetwork& network) {
    return (network.getPairwiseCiphers() & PAIRWISE_NONE) != 0;
}

bool hasWep(const WifiNetwork& network) {
    return (network.getGroupCiphers() & (GROUP_WEP104 | GROUP_WEP40)) != 0;
}

bool hasDynamicWep(const WifiNetwork& network) {
    return hasWep(network) && (network.getKeyManagement() & KEY_MGMT_IEEE8021X) != 0;
}

bool hasPsk(const WifiNetwork& network) {
    const char* const psk = network.getPsk();
    return psk && *psk != '\0';
}

bool usesPsk(const WifiNetwork& network) {
    const unsigned int methods = network.getKeyManagement();
    return methods == KEY_MGMT_WPA_PSK || (methods == PSK_OR_EAP && hasPsk(network));
}

bool usesEap(const WifiNetwork& network) {
    const unsigned int methods = network.getKeyManagement();
    return methods == KEY_MGMT_WPA_EAP || (methods == PSK_OR_EAP && !hasPsk(network));
}

constexpr unsigned int ANY_PROTOCOL = PROTOCOL_WPA | PROTOCOL_RSN;

constexpr unsigned int WEP = COMMON_ATTRIBUTES | KEY_MGMT_ATTRIBUTE | WEP_ATTRIBUTES;
constexpr unsigned int DYNAMIC_WEP = WEP | EAP_ATTRIBUTES;
constexpr unsigned int EAP = COMMON_ATTRIBUTES | KEY_MGMT_ATTRIBUTE | EAP_ATTRIBUTES;
constexpr unsigned int WPA_PSK = COMMON_ATTRIBUTES | KEY_MGMT_ATTRIBUTE | PSK_ATTRIBUTE;
// no key_mgmt attribute: existing readers of the document expect none. quirk: XML-11
constexpr unsigned int WPA2_PSK = COMMON_ATTRIBUTES | PSK_ATTRIBUTE;

// The types that the profile `modern` tries first. A network of one of them allows other methods as well.

template <unsigned int METHODS>
bool allows(const WifiNetwork& network) {
    return (network.getKeyManagement() & METHODS) != 0;
}

template <unsigned int FIRST, unsigned int SECOND>
bool allowsBoth(const WifiNetwork& network) {
    return allows<FIRST>(network) && allows<SECOND>(network);
}

constexpr unsigned int NEW_PSK_METHODS = KEY_MGMT_WPA_PSK_SHA256 | KEY_MGMT_FT_PSK;
constexpr unsigned int NEW_EAP_METHODS = KEY_MGMT_WPA_EAP_SHA256 | KEY_MGMT_FT_EAP;

constexpr unsigned int NEW_OPEN = COMMON_ATTRIBUTES | KEY_MGMT_ATTRIBUTE | PMF_ATTRIBUTE;
constexpr unsigned int NEW_PSK = NEW_OPEN | PSK_ATTRIBUTE;
constexpr unsigned int NEW_EAP = NEW_OPEN | EAP_ATTRIBUTES;

// clang-format off
constexpr SecurityType NEW_TYPES[] = {
    {"owe", allows<KEY_MGMT_OWE>, 0, NEW_OPEN},
    {"wpa2_wpa3_psk", allowsBoth<SAE_METHODS, PSK_METHODS>, 0, NEW_PSK},
    {"wpa3_psk", allows<SAE_METHODS>, 0, NEW_PSK},
    {"wpa3_192", allows<KEY_MGMT_SUITE_B_192>, 0, NEW_EAP},
    {"wpa2_psk", allows<NEW_PSK_METHODS>, 0, NEW_PSK},
    {"wpa2", allows<NEW_EAP_METHODS>, 0, NEW_EAP},
};
// clang-format on

// In the order in which they are tried; a network has the first that fits.
// clang-format off
constexpr SecurityType TYPES[] = {
    {"none", isOpen, ANY_PROTOCOL, 0},
    {"wep", hasDynamicWep, ANY_PROTOCOL, DYNAMIC_WEP},
    {"wep", hasWep, ANY_PROTOCOL, WEP},
    {"wpa_psk", usesPsk, PROTOCOL_WPA, WPA_PSK},
    {"wpa", usesEap, PROTOCOL_WPA, EAP},
    {"wpa2_psk", usesPsk, PROTOCOL_RSN, WPA2_PSK},
    {"wpa2", usesEap, PROTOCOL_RSN, EAP},
};
// clang-format on

template <std::size_t SIZE>
const SecurityType* firstOf(const SecurityType (&types)[SIZE], const WifiNetwork& network) {
    for (const SecurityType& type : types) {
        const bool fits = type.protocols == 0 || type.protocols == network.getProtocol();
        if (fits && type.applies(network))
            return &type;
    }
    return nullptr;
}

} // namespace

const SecurityType* securityTypeOf(const WifiNetwork& network) noexcept {
    const SecurityType* type = nullptr;
    if (rule::TODAYS_SECURITY_IS_KNOWN())
        type = firstOf(NEW_TYPES, network);
    return type ? type : firstOf(TYPES, network);
}

} // namespace platwifi
