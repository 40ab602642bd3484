#include "settings/report/SecurityType.h"

#include "model/WifiNetwork.h"

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

} // namespace

const SecurityType* securityTypeOf(const WifiNetwork& network) noexcept {
    for (const SecurityType& type : TYPES) {
        if (type.protocols == network.getProtocol() && type.applies(network))
            return &type;
    }
    return nullptr;
}

} // namespace platwifi
