#include "jni/NetworkProperties.h"

#include "jni/CipherCode.h"
#include "jni/Secrets.h"
#include "model/WifiNetwork.h"
#include "settings/replies/Columns.h"

#include <cstring>
#include <functional>

namespace platwifi {
namespace {

using N = WifiNetwork;

// Conversions of the value. `Set` is a setter of WifiNetwork, or a function that takes a network and
// the value. The result of a setter, whether the field changed, is not used.

unsigned int numberOf(const char* value) {
    return value ? static_cast<unsigned int>(decimalOf(value)) : 0;
}

const char* textOrNull(const char* value) {
    return value && value[0] != '\0' ? value : nullptr;
}

template <auto Set>
void number(N& network, const char* value, ErrorHandler* /*errors*/) {
    std::invoke(Set, network, numberOf(value));
}

template <auto Set>
void byte(N& network, const char* value, ErrorHandler* /*errors*/) {
    std::invoke(Set, network, static_cast<unsigned char>(numberOf(value)));
}

template <auto Set>
void verbatim(N& network, const char* value, ErrorHandler* /*errors*/) {
    std::invoke(Set, network, value);
}

template <auto Set>
void text(N& network, const char* value, ErrorHandler* /*errors*/) {
    std::invoke(Set, network, textOrNull(value));
}

template <auto Set>
void secret(N& network, const char* value, ErrorHandler* errors) {
    const DecipheredText plain(errors, textOrNull(value));
    if (plain)
        std::invoke(Set, network, plain.text());
}

template <auto Set>
void boolean(N& network, const char* value, ErrorHandler* /*errors*/) {
    std::invoke(Set, network, value && std::strcmp(value, "true") == 0);
}

template <unsigned int Slot>
void setWepKey(N& network, const char* key) {
    network.setWepKey(Slot, key);
}

void setCiphers(N& network, unsigned int code) {
    const CipherSets sets = cipherSetsOf(code);
    if (sets.pairwise)
        network.setPairwiseCiphers(*sets.pairwise);
    if (sets.group)
        network.setGroupCiphers(*sets.group);
}

// The property exists, but it never changes: a network is not renamed in this way.
void readOnly(N& /*network*/, const char* /*value*/, ErrorHandler* /*errors*/) {}

struct Property {
    const char* name;
    void (*set)(N& network, const char* value, ErrorHandler* errors);
};

// clang-format off
constexpr Property PROPERTIES[] = {
    {"authentication", number<&N::setAuthAlg>},
    {"bssid", verbatim<&N::setBssid>},
    {"channel", number<&N::setChannel>},
    {"clientCertificate", text<&N::setClientCertificate>},
    {"clientCertificate2", text<&N::setClientCertificate2>},
    {"CACertificateFile", text<&N::setCACertificate>},
    {"CACertificateDir", text<&N::setCACertificateDir>},
    {"CACertificateFile2", text<&N::setCACertificate2>},
    {"CACertificateDir2", text<&N::setCACertificateDir2>},
    {"eapIdentity", text<&N::setEAPIdentity>},
    {"eapAnonymousIdentity", text<&N::setEAPAnonymousIdentity>},
    {"eapPassword", secret<&N::setEAPPassword>},
    {"encryption", number<setCiphers>},
    {"eap", number<&N::setEapModes>},
    {"index", number<&N::setWepIndex>},
    {"key1", text<setWepKey<0>>},
    {"key2", text<setWepKey<1>>},
    {"key3", text<setWepKey<2>>},
    {"key4", text<setWepKey<3>>},
    {"key_mgmt", number<&N::setKeyManagement>},
    {"mode", byte<&N::setNetworkMode>},
    {"phase1", text<&N::setPhase1Step>},
    {"phase2", text<&N::setPhase2Step>},
    {"priority", number<&N::setPriority>},
    {"protocol", number<&N::setProtocol>},
    {"psk", secret<&N::setPsk>},
    {"privateKeyFile", text<&N::setPrivateKeyFile>},
    {"privateKeyFile2", text<&N::setPrivateKeyFile2>},
    {"privateKeyPassword", secret<&N::setPrivateKeyPassword>},
    {"privateKeyPassword2", secret<&N::setPrivateKeyPassword2>},
    {"ssid", readOnly}, // quirk: API-9
    {"strength", number<&N::setStrength>},
    {"status", number<&N::setNetworkStatus>},
    {"ssidBroadcasted", boolean<&N::setSsidBroadcasted>},
};
// clang-format on

} // namespace

void setNetworkProperty(WifiNetwork& network, const char* name, const char* value,
                        ErrorHandler* errors) {
    for (const Property& property : PROPERTIES) {
        if (name && std::strcmp(name, property.name) == 0)
            return property.set(network, value, errors);
    }
}

} // namespace platwifi
