#include "settings/report/NetworkAttributes.h"

#include "model/NetworkFields.h"
#include "settings/report/SecurityType.h"

#include <cstddef>

namespace platwifi {
namespace {

using Write = void (*)(AttributeWriter&, const char* name, const NetworkFields&, Field);

struct Attribute {
    unsigned int group; // of attributes that are written together
    Field field;
    const char* name;
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
    {LISTED, Field::SSID, "ssid", text},
    {DETAIL, Field::BSSID, "bssid", text},
    {DETAIL, Field::SSID_BROADCASTED, "ssidBroadcasted", boolean},
    {DETAIL, Field::NETWORK_MODE, "mode", number},
    {DETAIL, Field::CHANNEL, "channel", number},
    {LISTED, Field::STRENGTH, "strength", number},
    {DETAIL, Field::PRIORITY, "priority", number},
    {LISTED, Field::NETWORK_STATUS, "status", number},
};

constexpr Attribute CONFIGURATION[] = {
    {COMMON_ATTRIBUTES, Field::PROTOCOL, "protocol", number},
    {COMMON_ATTRIBUTES, Field::AUTH_ALG, "authentication", number},
    {COMMON_ATTRIBUTES, Field::PAIRWISE_CIPHERS, "encryption", ciphers},
    {KEY_MGMT_ATTRIBUTE, Field::KEY_MANAGEMENT, "key_mgmt", number},
    {PMF_ATTRIBUTE, Field::PMF, "pmf", number},
    {WEP_ATTRIBUTES, Field::WEP_KEY0, "key1", text},
    {WEP_ATTRIBUTES, Field::WEP_KEY1, "key2", text},
    {WEP_ATTRIBUTES, Field::WEP_KEY2, "key3", text},
    {WEP_ATTRIBUTES, Field::WEP_KEY3, "key4", text},
    {WEP_ATTRIBUTES, Field::WEP_INDEX, "index", oneBased},
    {PSK_ATTRIBUTE, Field::PSK, "psk", secret},
    {EAP_ATTRIBUTES, Field::EAP_MODES, "eap", number},
    {EAP_ATTRIBUTES, Field::EAP_IDENTITY, "eapIdentity", text},
    {EAP_ATTRIBUTES, Field::EAP_ANONYMOUS_IDENTITY, "eapAnonymousIdentity", text},
    {EAP_ATTRIBUTES, Field::EAP_PASSWORD, "eapPassword", secret},
    {EAP_ATTRIBUTES, Field::CA_CERTIFICATE, "CACertificateFile", text},
    {EAP_ATTRIBUTES, Field::CA_CERTIFICATE_DIR, "CACertificateDir", text},
    {EAP_ATTRIBUTES, Field::CLIENT_CERTIFICATE, "clientCertificate", text},
    {EAP_ATTRIBUTES, Field::PRIVATE_KEY_FILE, "privateKeyFile", text},
    {EAP_ATTRIBUTES, Field::PRIVATE_KEY_PASSWORD, "privateKeyPassword", secret},
    {EAP_ATTRIBUTES, Field::PHASE1_STEP, "phase1", text},
    {EAP_ATTRIBUTES, Field::PHASE2_STEP, "phase2", text},
    {EAP_ATTRIBUTES, Field::CA_CERTIFICATE2, "CACertificateFile2", text},
    {EAP_ATTRIBUTES, Field::CA_CERTIFICATE_DIR2, "CACertificateDir2", text},
    {EAP_ATTRIBUTES, Field::CLIENT_CERTIFICATE2, "clientCertificate2", text},
    {EAP_ATTRIBUTES, Field::PRIVATE_KEY_FILE2, "privateKeyFile2", text},
    {EAP_ATTRIBUTES, Field::PRIVATE_KEY_PASSWORD2, "privateKeyPassword2", secret},
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
