// The kind of security that a network's fields amount to.

#include "model/WifiNetwork.h"
#include "settings/report/SecurityType.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
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

// With both protocols.
const Row MIXED[] = {
    {0, PAIRWISE_NONE, 0, NO_PSK, "none"},
    {KEY_MGMT_NONE, PAIRWISE_NONE, GROUP_WEP104 | GROUP_WEP40, NO_PSK, "none"},
    {EAP, PAIRWISE_NONE | PAIRWISE_CCMP, GROUP_CCMP, "psk", "none"},
    {KEY_MGMT_NONE, 0, GROUP_WEP104, NO_PSK, "wep"},
    {KEY_MGMT_NONE, 0, GROUP_WEP40, NO_PSK, "wep"},
    {PSK | EAP, PAIRWISE_TKIP | PAIRWISE_CCMP, GROUP_TKIP | GROUP_CCMP | GROUP_WEP104 | GROUP_WEP40,
     "psk", "wep"},
    {KEY_MGMT_IEEE8021X, 0, GROUP_WEP40, NO_PSK, "wep"},
    {PSK, PAIRWISE_CCMP, GROUP_CCMP, "psk", ""},
    {PSK | EAP, PAIRWISE_TKIP, GROUP_TKIP, "psk", ""},
    {KEY_MGMT_IEEE8021X, 0, 0, NO_PSK, ""},
};

// With WPA alone; with RSN alone the types are those of "wpa2".
const Row SINGLE[] = {
    {PSK | EAP, 0, 0, "psk", "wpa_psk"},
    {PSK | EAP, 0, 0, NO_PSK, "wpa"},
    {PSK | EAP, 0, 0, "", "wpa"},
    {EAP, 0, 0, NO_PSK, "wpa"},
    {EAP, 0, 0, "psk", "wpa"},
    {PSK, 0, 0, NO_PSK, "wpa_psk"},
    {PSK, 0, 0, "psk", "wpa_psk"},
    {PSK, PAIRWISE_NONE, GROUP_WEP104, "psk", "wpa_psk"},
    {PSK, PAIRWISE_NONE, GROUP_WEP40, "psk", "wpa_psk"},
    {0, 0, 0, "psk", ""},
    {KEY_MGMT_NONE, PAIRWISE_NONE, GROUP_WEP104, "psk", ""},
    {KEY_MGMT_IEEE8021X, 0, 0, "psk", ""},
    {KEY_MGMT_WPA_NONE, 0, 0, "psk", ""},
    {PSK | KEY_MGMT_NONE, 0, 0, "psk", ""},
    {PSK | EAP | KEY_MGMT_NONE, 0, 0, "psk", ""},
    {EAP | KEY_MGMT_IEEE8021X, 0, 0, NO_PSK, ""},
    {PSK | EAP | KEY_MGMT_IEEE8021X, 0, 0, "psk", ""},
    {PSK | 0x100, 0, 0, "psk", ""},
};

std::string typeOf(unsigned int protocol, const Row& row) {
    WifiNetwork network;
    network.setProtocol(protocol);
    network.setKeyManagement(row.keyManagement);
    network.setPairwiseCiphers(row.pairwise);
    network.setGroupCiphers(row.group);
    network.setPsk("another"); // "" is stored over a text only
    network.setPsk(row.psk);
    const platwifi::SecurityType* const type = platwifi::securityTypeOf(network);
    return type ? type->name : "";
}

std::string inWords(const Row& row) {
    return "key management " + std::to_string(row.keyManagement) + ", pairwise " +
           std::to_string(row.pairwise) + ", group " + std::to_string(row.group) + ", psk " +
           (row.psk ? row.psk : "null");
}

// XML-6, XML-7, XML-8, XML-9
TEST(XmlSecurityType, FollowsFromTheFieldsAsAWhole) {
    for (const Row& row : MIXED)
        EXPECT_EQ(typeOf(BOTH, row), row.type) << inWords(row);
    for (const Row& row : SINGLE) {
        SCOPED_TRACE(inWords(row));
        const std::string type = row.type;
        EXPECT_EQ(typeOf(PROTOCOL_WPA, row), type);
        EXPECT_EQ(typeOf(PROTOCOL_RSN, row), type.empty() ? "" : "wpa2" + type.substr(3));
        for (const unsigned int unknown : {0U, 4U, BOTH | 4U, PROTOCOL_WPA | 4U})
            EXPECT_EQ(typeOf(unknown, row), "");
    }
}

} // namespace
