#include "jni/NetworkProperties.h"

#include "Profile.h"
#include "jni/CipherCode.h"
#include "jni/Secrets.h"
#include "model/NetworkFields.h"
#include "model/WifiTypes.h"
#include "settings/replies/Columns.h"

#include <algorithm>
#include <cstring>

namespace platwifi {
namespace {

// Conversions of the value. Whether the field changed is not used.

unsigned int numberOf(const char* value) {
    return value ? static_cast<unsigned int>(decimalOf(value)) : 0;
}

const char* textOrNull(const char* value) {
    return value && value[0] != '\0' ? value : nullptr;
}

void number(NetworkFields& fields, Field field, const char* value, ErrorHandler* /*errors*/) {
    fields.setNumber(field, numberOf(value));
}

void verbatim(NetworkFields& fields, Field field, const char* value, ErrorHandler* /*errors*/) {
    fields.setText(field, value);
}

void text(NetworkFields& fields, Field field, const char* value, ErrorHandler* /*errors*/) {
    fields.setText(field, textOrNull(value));
}

void secret(NetworkFields& fields, Field field, const char* value, ErrorHandler* errors) {
    const DecipheredText plain(errors, textOrNull(value));
    if (plain)
        fields.setText(field, plain.text());
}

void boolean(NetworkFields& fields, Field field, const char* value, ErrorHandler* /*errors*/) {
    fields.setNumber(field, value && std::strcmp(value, "true") == 0 ? 1 : 0);
}

// One code has the ciphers of both sets.
void ciphers(NetworkFields& fields, Field /*field*/, const char* value, ErrorHandler* /*errors*/) {
    const CipherSets sets = cipherSetsOf(numberOf(value));
    if (sets.pairwise)
        fields.setNumber(Field::PAIRWISE_CIPHERS, *sets.pairwise);
    if (sets.group)
        fields.setNumber(Field::GROUP_CIPHERS, *sets.group);
}

void pmf(NetworkFields& fields, Field field, const char* value, ErrorHandler* /*errors*/) {
    if (rule::TODAYS_SECURITY_IS_KNOWN())
        fields.setNumber(field, std::min<unsigned int>(numberOf(value), PMF_DEFAULT));
}

// The property exists, but it never changes: a network is not renamed in this way.
void readOnly(NetworkFields& /*fields*/, Field /*field*/, const char* /*value*/,
              ErrorHandler* /*errors*/) {}

struct Property {
    const char* name;
    Field field;
    void (*set)(NetworkFields&, Field, const char* value, ErrorHandler* errors);
};

constexpr Property PROPERTIES[] = {
    {"authentication", Field::AUTH_ALG, number},
    {"bssid", Field::BSSID, verbatim},
    {"channel", Field::CHANNEL, number},
    {"clientCertificate", Field::CLIENT_CERTIFICATE, text},
    {"clientCertificate2", Field::CLIENT_CERTIFICATE2, text},
    {"CACertificateFile", Field::CA_CERTIFICATE, text},
    {"CACertificateDir", Field::CA_CERTIFICATE_DIR, text},
    {"CACertificateFile2", Field::CA_CERTIFICATE2, text},
    {"CACertificateDir2", Field::CA_CERTIFICATE_DIR2, text},
    {"eapIdentity", Field::EAP_IDENTITY, text},
    {"eapAnonymousIdentity", Field::EAP_ANONYMOUS_IDENTITY, text},
    {"eapPassword", Field::EAP_PASSWORD, secret},
    {"encryption", Field::PAIRWISE_CIPHERS, ciphers},
    {"eap", Field::EAP_MODES, number},
    {"index", Field::WEP_INDEX, number},
    {"key1", Field::WEP_KEY0, text},
    {"key2", Field::WEP_KEY1, text},
    {"key3", Field::WEP_KEY2, text},
    {"key4", Field::WEP_KEY3, text},
    {"key_mgmt", Field::KEY_MANAGEMENT, number},
    {"mode", Field::NETWORK_MODE, number},
    {"phase1", Field::PHASE1_STEP, text},
    {"phase2", Field::PHASE2_STEP, text},
    {"pmf", Field::PMF, pmf},
    {"priority", Field::PRIORITY, number},
    {"protocol", Field::PROTOCOL, number},
    {"psk", Field::PSK, secret},
    {"privateKeyFile", Field::PRIVATE_KEY_FILE, text},
    {"privateKeyFile2", Field::PRIVATE_KEY_FILE2, text},
    {"privateKeyPassword", Field::PRIVATE_KEY_PASSWORD, secret},
    {"privateKeyPassword2", Field::PRIVATE_KEY_PASSWORD2, secret},
    {"ssid", Field::SSID, readOnly}, // quirk: API-9
    {"strength", Field::STRENGTH, number},
    {"status", Field::NETWORK_STATUS, number},
    {"ssidBroadcasted", Field::SSID_BROADCASTED, boolean},
};

} // namespace

void setNetworkProperty(WifiNetwork& network, const char* name, const char* value,
                        ErrorHandler* errors) {
    for (const Property& property : PROPERTIES) {
        if (name && std::strcmp(name, property.name) == 0)
            return property.set(NetworkFields::of(network), property.field, value, errors);
    }
}

} // namespace platwifi
