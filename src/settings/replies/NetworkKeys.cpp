#include "settings/replies/NetworkKeys.h"

#include "model/NetworkFunctions.h"
#include "model/WifiNetwork.h"
#include "settings/replies/Columns.h"
#include "settings/replies/ValueWords.h"

#include <cstring>

namespace platwifi {
namespace {

using Network = WifiNetwork;

// What is done with the value of a field.

using OnValue = void (*)(Network&, const char* value);

template <bool (Network::*SET)(const char*)>
void text(Network& network, const char* value) {
    (network.*SET)(value);
}

template <bool (Network::*SET)(unsigned int), unsigned int (*MEANING)(const char*)>
void number(Network& network, const char* value) {
    (network.*SET)(MEANING(value));
}

template <unsigned int SLOT>
void wepKey(Network& network, const char* value) {
    network.setWepKey(SLOT, value);
}

unsigned int decimal(const char* value) {
    return static_cast<unsigned int>(decimalOf(value));
}

// Overrides the status by the flag of the list, which is read before the fields.
void disabled(Network& network, const char* value) {
    if (decimalOf(value) != 0)
        network.setNetworkStatus(NETWORK_STATUS_DISABLED);
}

void mode(Network& network, const char* value) {
    network.setNetworkMode(static_cast<unsigned char>(decimalOf(value)));
}

// scan_ssid=0: the SSID is broadcast. Any other value has probe requests sent for it, as hidden networks need.
void scanSsid(Network& network, const char* value) {
    network.setSsidBroadcasted(std::strcmp(value, "0") == 0);
}

// What is done with a field that is not set: the network gets the supplicant's default, where it has one.

using OnUnset = void (*)(Network&);

void unchanged(Network& /*network*/) {}

void noBssid(Network& network) {
    network.setBssid(NO_BSSID);
}

template <bool (Network::*SET)(unsigned int), unsigned int FLAGS>
void flags(Network& network) {
    (network.*SET)(FLAGS);
}

constexpr unsigned int ANY_KEY_MGMT = KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_EAP;
constexpr unsigned int ANY_PAIRWISE = PAIRWISE_TKIP | PAIRWISE_CCMP;
constexpr unsigned int ANY_GROUP = GROUP_TKIP | GROUP_CCMP | GROUP_WEP104 | GROUP_WEP40;
constexpr unsigned int ANY_PROTO = PROTOCOL_WPA | PROTOCOL_RSN;

// Whether a field applies to a network; it is asked for only then.

using Applies = bool (*)(const Network&);

bool always(const Network& /*network*/) {
    return true;
}

bool ifWep(const Network& network) {
    return (network.getKeyManagement() & (KEY_MGMT_NONE | KEY_MGMT_IEEE8021X)) != 0;
}

struct NetworkKey;

struct Keys {
    const NetworkKey* first = nullptr;
    const NetworkKey* last = nullptr;

    const NetworkKey* begin() const { return first; }
    const NetworkKey* end() const { return last; }
};

struct NetworkKey {
    const char* name;
    OnValue onValue;
    OnUnset onUnset;
    Applies applies = always;
    Keys dependents = {}; // asked for right after this field, and only where it has a value
};

constexpr NetworkKey WEP_KEYS[] = {
    {"wep_key0", wepKey<0>, unchanged},
    {"wep_key1", wepKey<1>, unchanged},
    {"wep_key2", wepKey<2>, unchanged},
    {"wep_key3", wepKey<3>, unchanged},
};
constexpr Keys ALL_WEP_KEYS{std::begin(WEP_KEYS), std::end(WEP_KEYS)};

// In the order in which they are asked for. The key management comes before the WEP keys, which apply only to
// some of its methods.
// clang-format off
constexpr NetworkKey NETWORK_KEYS[] = {
    {"disabled", disabled, unchanged},
    {"bssid", text<&Network::setBssid>, noBssid},
    {"mode", mode, unchanged},
    {"priority", number<&Network::setPriority, decimal>, unchanged},
    {"key_mgmt", number<&Network::setKeyManagement, keyManagementIn>, flags<&Network::setKeyManagement, ANY_KEY_MGMT>},
    {"psk", text<&Network::setPsk>, unchanged},
    {"pairwise", number<&Network::setPairwiseCiphers, pairwiseCiphersIn>, flags<&Network::setPairwiseCiphers, ANY_PAIRWISE>},
    {"group", number<&Network::setGroupCiphers, groupCiphersIn>, flags<&Network::setGroupCiphers, ANY_GROUP>},
    {"proto", number<&Network::setProtocol, protocolsIn>, flags<&Network::setProtocol, ANY_PROTO>},
    {"eap", number<&Network::setEapModes, eapModeIn>, unchanged},
    {"auth_alg", number<&Network::setAuthAlg, authAlgIn>, unchanged},
    {"wep_tx_keyidx", number<&Network::setWepIndex, decimal>, unchanged, ifWep, ALL_WEP_KEYS},
    {"scan_ssid", scanSsid, unchanged},
    {"identity", text<&Network::setEAPIdentity>, unchanged},
    {"anonymous_identity", text<&Network::setEAPAnonymousIdentity>, unchanged},
    {"password", text<&Network::setEAPPassword>, unchanged},
    {"private_key_passwd", text<&Network::setPrivateKeyPassword>, unchanged},
    {"ca_cert", text<&Network::setCACertificate>, unchanged},
    {"ca_path", text<&Network::setCACertificateDir>, unchanged},
    {"client_cert", text<&Network::setClientCertificate>, unchanged},
    {"private_key", text<&Network::setPrivateKeyFile>, unchanged},
    {"phase1", text<&Network::setPhase1Step>, unchanged},
    {"phase2", text<&Network::setPhase2Step>, unchanged},
    {"private_key_passwd2", text<&Network::setPrivateKeyPassword2>, unchanged}, // quirk: LOAD-15
    {"ca_cert2", text<&Network::setCACertificate2>, unchanged},
    {"ca_path2", text<&Network::setCACertificateDir2>, unchanged},
    {"client_cert2", text<&Network::setClientCertificate2>, unchanged},
    {"private_key2", text<&Network::setPrivateKeyFile2>, unchanged},
};
// clang-format on

void read(const Keys& keys, Network& network, const ValueSource& valueOf);

void read(const NetworkKey& key, Network& network, const ValueSource& valueOf) {
    if (!key.applies(network))
        return;
    const char* const value = valueOf(key.name);
    if (!value) {
        key.onUnset(network);
        return;
    }
    key.onValue(network, value);
    read(key.dependents, network, valueOf);
}

void read(const Keys& keys, Network& network, const ValueSource& valueOf) {
    for (const NetworkKey& key : keys)
        read(key, network, valueOf);
}

} // namespace

void readNetworkKeys(Network& network, const ValueSource& valueOf) {
    read({std::begin(NETWORK_KEYS), std::end(NETWORK_KEYS)}, network, valueOf);
}

} // namespace platwifi
