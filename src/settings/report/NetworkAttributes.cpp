#include "settings/report/NetworkAttributes.h"

#include "model/NetworkFields.h"
#include "settings/report/SecurityType.h"

#include <cstddef>

namespace platwifi {
namespace {

using Write = void (*)(AttributeWriter&, const char* name, const NetworkFields&, Field);

struct Attribute {
    unsigned int group; // of attributes that are written together
    const char* name;
    Field field;
    Write write;
};

void text(AttributeWriter& out, const char* name, const NetworkFields& fields, Field field) {
    out.text(name, fields.text(field));
}

void number(AttributeWriter& out, const char* name, const NetworkFields& fields, Field field) {
    out.number(name, fields.number(field));
}

void boolean(AttributeWriter& out, const char* name, const NetworkFields& fields, Field field) {
    out.boolean(name, fields.number(field) != 0);
}

void secret(AttributeWriter& out, const char* name, const NetworkFields& fields, Field field) {
    out.secret(name, fields.text(field));
}

// The ciphers that are of both kinds have the same number in both, so that one number holds the two sets.
void ciphers(AttributeWriter& out, const char* name, const NetworkFields& fields, Field /*field*/) {
    out.number(name, fields.number(Field::GROUP_CIPHERS) | fields.number(Field::PAIRWISE_CIPHERS));
}

void oneBased(AttributeWriter& out, const char* name, const NetworkFields& fields, Field field) {
    out.number(name, fields.number(field) + 1);
}

constexpr unsigned int LISTED = 0x1;
constexpr unsigned int DETAIL = 0x2;

constexpr Attribute DESCRIPTION[] = {
    {LISTED, "ssid", Field::SSID, text},
    {DETAIL, "bssid", Field::BSSID, text},
    {DETAIL, "ssidBroadcasted", Field::SSID_BROADCASTED, boolean},
    {DETAIL, "mode", Field::NETWORK_MODE, number},
    {DETAIL, "channel", Field::CHANNEL, number},
    {LISTED, "strength", Field::STRENGTH, number},
    {DETAIL, "priority", Field::PRIORITY, number},
    {LISTED, "status", Field::NETWORK_STATUS, number},
};

constexpr Attribute CONFIGURATION[] = {
    {COMMON_ATTRIBUTES, "protocol", Field::PROTOCOL, number},
    {COMMON_ATTRIBUTES, "authentication", Field::AUTH_ALG, number},
    {COMMON_ATTRIBUTES, "encryption", Field::PAIRWISE_CIPHERS, ciphers},
    {KEY_MGMT_ATTRIBUTE, "key_mgmt", Field::KEY_MANAGEMENT, number},
    {PMF_ATTRIBUTE, "pmf", Field::PMF, number},
    {WEP_ATTRIBUTES, "key1", Field::WEP_KEY0, text},
    {WEP_ATTRIBUTES, "key2", Field::WEP_KEY1, text},
    {WEP_ATTRIBUTES, "key3", Field::WEP_KEY2, text},
    {WEP_ATTRIBUTES, "key4", Field::WEP_KEY3, text},
    {WEP_ATTRIBUTES, "index", Field::WEP_INDEX, oneBased},
    {PSK_ATTRIBUTE, "psk", Field::PSK, secret},
    {EAP_ATTRIBUTES, "eap", Field::EAP_MODES, number},
    {EAP_ATTRIBUTES, "eapIdentity", Field::EAP_IDENTITY, text},
    {EAP_ATTRIBUTES, "eapAnonymousIdentity", Field::EAP_ANONYMOUS_IDENTITY, text},
    {EAP_ATTRIBUTES, "eapPassword", Field::EAP_PASSWORD, secret},
    {EAP_ATTRIBUTES, "CACertificateFile", Field::CA_CERTIFICATE, text},
    {EAP_ATTRIBUTES, "CACertificateDir", Field::CA_CERTIFICATE_DIR, text},
    {EAP_ATTRIBUTES, "clientCertificate", Field::CLIENT_CERTIFICATE, text},
    {EAP_ATTRIBUTES, "privateKeyFile", Field::PRIVATE_KEY_FILE, text},
    {EAP_ATTRIBUTES, "privateKeyPassword", Field::PRIVATE_KEY_PASSWORD, secret},
    {EAP_ATTRIBUTES, "phase1", Field::PHASE1_STEP, text},
    {EAP_ATTRIBUTES, "phase2", Field::PHASE2_STEP, text},
    {EAP_ATTRIBUTES, "CACertificateFile2", Field::CA_CERTIFICATE2, text},
    {EAP_ATTRIBUTES, "CACertificateDir2", Field::CA_CERTIFICATE_DIR2, text},
    {EAP_ATTRIBUTES, "clientCertificate2", Field::CLIENT_CERTIFICATE2, text},
    {EAP_ATTRIBUTES, "privateKeyFile2", Field::PRIVATE_KEY_FILE2, text},
    {EAP_ATTRIBUTES, "privateKeyPassword2", Field::PRIVATE_KEY_PASSWORD2, secret},
};

template <std::size_t SIZE>
void write(AttributeWriter& out, const WifiNetwork& network, const Attribute (&attributes)[SIZE],
           unsigned int groups) {
    const NetworkFields& fields = NetworkFields::of(network);
    for (const Attribute& attribute : attributes) {
        if (attribute.group & groups)
            attribute.write(out, attribute.name, fields, attribute.field);
    }
}

} // namespace

void writeDescription(AttributeWriter& out, const WifiNetwork& network) {
    write(out, network, DESCRIPTION, LISTED | DETAIL);
}

void writeListEntry(AttributeWriter& out, const WifiNetwork& network) {
    write(out, network, DESCRIPTION, LISTED);
}

void writeConfiguration(AttributeWriter& out, const WifiNetwork& network, unsigned int attributes) {
    out.boolean("supported", true);
    out.boolean("use", true);
    write(out, network, CONFIGURATION, attributes);
}

} // namespace platwifi
