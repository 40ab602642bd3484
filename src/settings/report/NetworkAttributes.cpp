#include "settings/report/NetworkAttributes.h"

#include "model/NetworkFunctions.h"
#include "settings/report/SecurityType.h"

#include <cstddef>
#include <functional>

namespace platwifi {
namespace {

using Write = void (*)(AttributeWriter&, const char* name, const WifiNetwork&);

struct Attribute {
    unsigned int group; // of attributes that are written together
    const char* name;
    Write write;
};

// `Get` is a getter of WifiNetwork, or a function that takes a network.

template <auto Get>
void text(AttributeWriter& out, const char* name, const WifiNetwork& network) {
    out.text(name, std::invoke(Get, network));
}

template <auto Get>
void number(AttributeWriter& out, const char* name, const WifiNetwork& network) {
    out.number(name, std::invoke(Get, network));
}

template <auto Get>
void boolean(AttributeWriter& out, const char* name, const WifiNetwork& network) {
    out.boolean(name, std::invoke(Get, network) != 0);
}

template <auto Get>
void secret(AttributeWriter& out, const char* name, const WifiNetwork& network) {
    out.secret(name, std::invoke(Get, network));
}

void alwaysTrue(AttributeWriter& out, const char* name, const WifiNetwork& /*network*/) {
    out.boolean(name, true);
}

// The ciphers that are of both kinds have the same number in both, so that one number holds the two sets.
unsigned int ciphers(const WifiNetwork& network) {
    return network.getGroupCiphers() | network.getPairwiseCiphers();
}

unsigned int oneBasedWepIndex(const WifiNetwork& network) {
    return network.getWepIndex() + 1;
}

using N = WifiNetwork;

constexpr unsigned int LISTED = 0x1;
constexpr unsigned int DETAIL = 0x2;

constexpr Attribute DESCRIPTION[] = {
    {LISTED, "ssid", text<&N::getSsid>},
    {DETAIL, "bssid", text<&N::getBssid>},
    {DETAIL, "ssidBroadcasted", boolean<&N::getSsidBroadcasted>},
    {DETAIL, "mode", number<&N::getNetworkMode>},
    {DETAIL, "channel", number<&N::getChannel>},
    {LISTED, "strength", number<&N::getStrength>},
    {DETAIL, "priority", number<&N::getPriority>},
    {LISTED, "status", number<&N::getNetworkStatus>},
};

constexpr Attribute CONFIGURATION[] = {
    {COMMON_ATTRIBUTES, "supported", alwaysTrue},
    {COMMON_ATTRIBUTES, "use", alwaysTrue},
    {COMMON_ATTRIBUTES, "protocol", number<&N::getProtocol>},
    {COMMON_ATTRIBUTES, "authentication", number<&N::getAuthAlg>},
    {COMMON_ATTRIBUTES, "encryption", number<ciphers>},
    {KEY_MGMT_ATTRIBUTE, "key_mgmt", number<&N::getKeyManagement>},
    {WEP_ATTRIBUTES, "key1", text<wepKey<0>>},
    {WEP_ATTRIBUTES, "key2", text<wepKey<1>>},
    {WEP_ATTRIBUTES, "key3", text<wepKey<2>>},
    {WEP_ATTRIBUTES, "key4", text<wepKey<3>>},
    {WEP_ATTRIBUTES, "index", number<oneBasedWepIndex>},
    {PSK_ATTRIBUTE, "psk", secret<&N::getPsk>},
    {EAP_ATTRIBUTES, "eap", number<&N::getEapModes>},
    {EAP_ATTRIBUTES, "eapIdentity", text<&N::getEAPIdentity>},
    {EAP_ATTRIBUTES, "eapAnonymousIdentity", text<&N::getEAPAnonymousIdentity>},
    {EAP_ATTRIBUTES, "eapPassword", secret<&N::getEAPPassword>},
    {EAP_ATTRIBUTES, "CACertificateFile", text<&N::getCACertificate>},
    {EAP_ATTRIBUTES, "CACertificateDir", text<&N::getCACertificateDir>},
    {EAP_ATTRIBUTES, "clientCertificate", text<&N::getClientCertificate>},
    {EAP_ATTRIBUTES, "privateKeyFile", text<&N::getPrivateKeyFile>},
    {EAP_ATTRIBUTES, "privateKeyPassword", secret<&N::getPrivateKeyPassword>},
    {EAP_ATTRIBUTES, "phase1", text<&N::getPhase1Step>},
    {EAP_ATTRIBUTES, "phase2", text<&N::getPhase2Step>},
    {EAP_ATTRIBUTES, "CACertificateFile2", text<&N::getCACertificate2>},
    {EAP_ATTRIBUTES, "CACertificateDir2", text<&N::getCACertificateDir2>},
    {EAP_ATTRIBUTES, "clientCertificate2", text<&N::getClientCertificate2>},
    {EAP_ATTRIBUTES, "privateKeyFile2", text<&N::getPrivateKeyFile2>},
    {EAP_ATTRIBUTES, "privateKeyPassword2", secret<&N::getPrivateKeyPassword2>},
};

template <std::size_t SIZE>
void write(AttributeWriter& out, const WifiNetwork& network, const Attribute (&attributes)[SIZE],
           unsigned int groups) {
    for (const Attribute& attribute : attributes) {
        if (attribute.group & groups)
            attribute.write(out, attribute.name, network);
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
    write(out, network, CONFIGURATION, attributes);
}

} // namespace platwifi
