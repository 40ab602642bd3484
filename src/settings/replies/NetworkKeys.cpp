#include "settings/replies/NetworkKeys.h"

#include "Profile.h"
#include "model/NetworkFields.h"
#include "model/NetworkFunctions.h"
#include "model/WifiTypes.h"
#include "settings/replies/Columns.h"
#include "settings/replies/ValueWords.h"

#include <cstring>

namespace platwifi {
namespace {

// What is done with the value of a field.

using OnValue = void (*)(NetworkFields&, Field, const char* value);

void text(NetworkFields& fields, Field field, const char* value) {
    fields.setText(field, value);
}

template <unsigned int (*MEANING)(const char*)>
void number(NetworkFields& fields, Field field, const char* value) {
    fields.setNumber(field, MEANING(value));
}

unsigned int decimal(const char* value) {
    return static_cast<unsigned int>(decimalOf(value));
}

// Overrides the status by the flag of the list, which is read before the fields.
void disabled(NetworkFields& fields, Field status, const char* value) {
    if (decimalOf(value) != 0)
        fields.setNumber(status, NETWORK_STATUS_DISABLED);
}

// scan_ssid=0: the SSID is broadcast. Any other value has probe requests sent for it, as hidden networks need.
unsigned int isBroadcast(const char* scanSsid) {
    return std::strcmp(scanSsid, "0") == 0 ? 1 : 0;
}

// What is done with a field that is not set: the network gets the supplicant's default, where it has one.

using OnUnset = void (*)(NetworkFields&, Field);

void unchanged(NetworkFields& /*fields*/, Field /*field*/) {}

void noBssid(NetworkFields& fields, Field field) {
    fields.setText(field, NO_BSSID);
}

template <unsigned int FLAGS>
void flags(NetworkFields& fields, Field field) {
    fields.setNumber(field, FLAGS);
}

constexpr unsigned int ANY_KEY_MGMT = KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_EAP;
constexpr unsigned int ANY_PAIRWISE = PAIRWISE_TKIP | PAIRWISE_CCMP;
constexpr unsigned int ANY_GROUP = GROUP_TKIP | GROUP_CCMP | GROUP_WEP104 | GROUP_WEP40;
constexpr unsigned int ANY_PROTO = PROTOCOL_WPA | PROTOCOL_RSN;

// Whether a field applies to a network; it is asked for only then.

using Applies = bool (*)(const NetworkFields&);

bool always(const NetworkFields& /*fields*/) {
    return true;
}

bool ifKnown(const NetworkFields& /*fields*/) {
    return rule::TODAYS_SECURITY_IS_KNOWN();
}

bool ifWep(const NetworkFields& fields) {
    return (fields.number(Field::KEY_MANAGEMENT) & (KEY_MGMT_NONE | KEY_MGMT_IEEE8021X)) != 0;
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
    Field field;
    OnValue onValue;
    OnUnset onUnset = unchanged;
    Applies applies = always;
    Keys dependents = {}; // asked for right after this field, and only where it has a value
};

constexpr NetworkKey WEP_KEYS[] = {
    {"wep_key0", Field::WEP_KEY0, text},
    {"wep_key1", Field::WEP_KEY1, text},
    {"wep_key2", Field::WEP_KEY2, text},
    {"wep_key3", Field::WEP_KEY3, text},
};
constexpr Keys ALL_WEP_KEYS{std::begin(WEP_KEYS), std::end(WEP_KEYS)};

// In the order in which they are asked for. The key management comes before the WEP keys, which apply only to
// some of its methods.
constexpr NetworkKey NETWORK_KEYS[] = {
    {"disabled", Field::NETWORK_STATUS, disabled},
    {"bssid", Field::BSSID, text, noBssid},
    {"mode", Field::NETWORK_MODE, number<decimal>},
    {"priority", Field::PRIORITY, number<decimal>},
    {"key_mgmt", Field::KEY_MANAGEMENT, number<keyManagementIn>, flags<ANY_KEY_MGMT>},
    {"psk", Field::PSK, text},
    {"sae_password", Field::PSK, text, unchanged,
     ifKnown}, // of any length, in place of a pre-shared key
    {"ieee80211w", Field::PMF, number<decimal>, unchanged, ifKnown},
    {"pairwise", Field::PAIRWISE_CIPHERS, number<pairwiseCiphersIn>, flags<ANY_PAIRWISE>},
    {"group", Field::GROUP_CIPHERS, number<groupCiphersIn>, flags<ANY_GROUP>},
    {"proto", Field::PROTOCOL, number<protocolsIn>, flags<ANY_PROTO>},
    {"eap", Field::EAP_MODES, number<eapModeIn>},
    {"auth_alg", Field::AUTH_ALG, number<authAlgIn>},
    {"wep_tx_keyidx", Field::WEP_INDEX, number<decimal>, unchanged, ifWep, ALL_WEP_KEYS},
    {"scan_ssid", Field::SSID_BROADCASTED, number<isBroadcast>},
    {"identity", Field::EAP_IDENTITY, text},
    {"anonymous_identity", Field::EAP_ANONYMOUS_IDENTITY, text},
    {"password", Field::EAP_PASSWORD, text},
    {"private_key_passwd", Field::PRIVATE_KEY_PASSWORD, text},
    {"ca_cert", Field::CA_CERTIFICATE, text},
    {"ca_path", Field::CA_CERTIFICATE_DIR, text},
    {"client_cert", Field::CLIENT_CERTIFICATE, text},
    {"private_key", Field::PRIVATE_KEY_FILE, text},
    {"phase1", Field::PHASE1_STEP, text},
    {"phase2", Field::PHASE2_STEP, text},
    {"private_key_passwd2", Field::PRIVATE_KEY_PASSWORD2, text}, // quirk: LOAD-15
    {"ca_cert2", Field::CA_CERTIFICATE2, text},
    {"ca_path2", Field::CA_CERTIFICATE_DIR2, text},
    {"client_cert2", Field::CLIENT_CERTIFICATE2, text},
    {"private_key2", Field::PRIVATE_KEY_FILE2, text},
};

const char* nameOf(const NetworkKey& key) {
    return key.field == Field::PRIVATE_KEY_PASSWORD2 ? rule::INNER_KEY_PASSWORD() : key.name;
}

void read(const Keys& keys, NetworkFields& fields, const ValueSource& valueOf);

void read(const NetworkKey& key, NetworkFields& fields, const ValueSource& valueOf) {
    if (!key.applies(fields))
        return;
    const char* const value = valueOf(nameOf(key));
    if (!value) {
        key.onUnset(fields, key.field);
        return;
    }
    key.onValue(fields, key.field, value);
    read(key.dependents, fields, valueOf);
}

void read(const Keys& keys, NetworkFields& fields, const ValueSource& valueOf) {
    for (const NetworkKey& key : keys)
        read(key, fields, valueOf);
}

} // namespace

void readNetworkKeys(WifiNetwork& network, const ValueSource& valueOf) {
    read({std::begin(NETWORK_KEYS), std::end(NETWORK_KEYS)}, NetworkFields::of(network), valueOf);
}

} // namespace platwifi
