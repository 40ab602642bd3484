// The kind of security that a network's fields amount to.

#include "model/WifiNetwork.h"
#include "settings/report/SecurityType.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
    unsigned int protocol;
    unsigned int keyManagement;
    unsigned int pairwise;
    unsigned int group;
    const char* psk;
    const char* type; // "" for none
};

constexpr unsigned int BOTH = PROTOCOL_WPA | PROTOCOL_RSN;
constexpr unsigned int PSK = KEY_MGMT_WPA_PSK;
constexpr unsigned int EAP = KEY_MGMT_WPA_EAP;
constexpr const char* NO_PSK = nullptr;

const Row ROWS[] = {
    {BOTH, 0, PAIRWISE_NONE, 0, NO_PSK, "none"},
    {BOTH, KEY_MGMT_NONE, PAIRWISE_NONE, GROUP_WEP104 | GROUP_WEP40, NO_PSK, "none"},
    {BOTH, EAP, PAIRWISE_NONE | PAIRWISE_CCMP, GROUP_CCMP, "psk", "none"},
    {BOTH, KEY_MGMT_NONE, 0, GROUP_WEP104, NO_PSK, "wep"},
    {BOTH, KEY_MGMT_NONE, 0, GROUP_WEP40, NO_PSK, "wep"},
    {BOTH, PSK | EAP, PAIRWISE_TKIP | PAIRWISE_CCMP,
     GROUP_TKIP | GROUP_CCMP | GROUP_WEP104 | GROUP_WEP40, "psk", "wep"},
    {BOTH, KEY_MGMT_IEEE8021X, 0, GROUP_WEP40, NO_PSK, "wep"},
    {BOTH, PSK, PAIRWISE_CCMP, GROUP_CCMP, "psk", ""},
    {BOTH, PSK | EAP, PAIRWISE_TKIP, GROUP_TKIP, "psk", ""},
    {BOTH, KEY_MGMT_IEEE8021X, 0, 0, NO_PSK, ""},
    {PROTOCOL_WPA, PSK | EAP, 0, 0, "psk", "wpa_psk"},
    {PROTOCOL_WPA, PSK | EAP, 0, 0, NO_PSK, "wpa"},
    {PROTOCOL_WPA, PSK | EAP, 0, 0, "", "wpa"},
    {PROTOCOL_WPA, EAP, 0, 0, NO_PSK, "wpa"},
    {PROTOCOL_WPA, EAP, 0, 0, "psk", "wpa"},
    {PROTOCOL_WPA, PSK, 0, 0, NO_PSK, "wpa_psk"},
    {PROTOCOL_WPA, PSK, 0, 0, "psk", "wpa_psk"},
    {PROTOCOL_WPA, PSK, PAIRWISE_NONE, GROUP_WEP104, "psk", "wpa_psk"},
    {PROTOCOL_WPA, 0, 0, 0, "psk", ""},
    {PROTOCOL_WPA, KEY_MGMT_NONE, PAIRWISE_NONE, GROUP_WEP104, "psk", ""},
    {PROTOCOL_WPA, KEY_MGMT_IEEE8021X, 0, 0, "psk", ""},
    {PROTOCOL_WPA, KEY_MGMT_WPA_NONE, 0, 0, "psk", ""},
    {PROTOCOL_WPA, PSK | KEY_MGMT_NONE, 0, 0, "psk", ""},
    {PROTOCOL_WPA, EAP | KEY_MGMT_IEEE8021X, 0, 0, NO_PSK, ""},
    {PROTOCOL_WPA, PSK | EAP | KEY_MGMT_IEEE8021X, 0, 0, "psk", ""},
    {PROTOCOL_WPA, PSK | 0x100, 0, 0, "psk", ""},
    {PROTOCOL_RSN, PSK | EAP, 0, 0, "psk", "wpa2_psk"},
    {PROTOCOL_RSN, PSK | EAP, 0, 0, NO_PSK, "wpa2"},
    {PROTOCOL_RSN, PSK | EAP, 0, 0, "", "wpa2"},
    {PROTOCOL_RSN, EAP, 0, 0, "psk", "wpa2"},
    {PROTOCOL_RSN, PSK, 0, 0, NO_PSK, "wpa2_psk"},
    {PROTOCOL_RSN, PSK, PAIRWISE_NONE, GROUP_WEP40, "psk", "wpa2_psk"},
    {PROTOCOL_RSN, 0, 0, 0, "psk", ""},
    {PROTOCOL_RSN, KEY_MGMT_NONE, PAIRWISE_NONE, GROUP_WEP40, "psk", ""},
    {PROTOCOL_RSN, PSK | EAP | KEY_MGMT_NONE, 0, 0, "psk", ""},
    {PROTOCOL_RSN, EAP | KEY_MGMT_IEEE8021X, 0, 0, NO_PSK, ""},
    {0, PSK, PAIRWISE_NONE, GROUP_WEP104, "psk", ""},
    {0, EAP, 0, 0, NO_PSK, ""},
    {4, PSK, PAIRWISE_NONE, GROUP_WEP104, "psk", ""},
    {BOTH | 4, PSK, PAIRWISE_NONE, GROUP_WEP104, "psk", ""},
    {PROTOCOL_WPA | 4, PSK, 0, 0, "psk", ""},
};

std::string typeOf(const Row& row) {
    WifiNetwork network;
    network.setProtocol(row.protocol);
    network.setKeyManagement(row.keyManagement);
    network.setPairwiseCiphers(row.pairwise);
    network.setGroupCiphers(row.group);
    network.setPsk("another"); // "" is stored over a text only
    network.setPsk(row.psk);
    const platwifi::SecurityType* const type = platwifi::securityTypeOf(network);
    return type ? type->name : "";
}

// XML-6, XML-7, XML-8, XML-9
TEST(XmlSecurityType, FollowsFromTheFieldsAsAWhole) {
    for (const Row& row : ROWS) {
        EXPECT_EQ(typeOf(row), row.type)
            << "protocol " << row.protocol << ", key management " << row.keyManagement
            << ", pairwise " << row.pairwise << ", group " << row.group << ", psk "
            << (row.psk ? row.psk : "null");
    }
}

} // namespace
