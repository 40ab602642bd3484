#include "settings/SavedFields.h"

#include "model/NetworkFunctions.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"
#include "supplicant/WifiUtil.h"

#include <cstring>
#include <functional>
#include <optional>
#include <string>

namespace platwifi {
namespace {

constexpr const char* EMPTY = "\"\""; // what the supplicant reads as an empty text
constexpr const char* MASK = "*";     // stands for a secret that was not changed

struct Value {
    bool stays = false;              // dirty: there is nothing to write yet
    std::optional<std::string> text; // without one the supplicant keeps what it has
};

constexpr bool STAYS = true;

// How a field's value is told to the supplicant. `Get` is a getter of WifiNetwork, or a function that
// takes a network.

template <auto Get>
Value required(const WifiNetwork& network) {
    const char* const text = std::invoke(Get, network);
    return text ? Value{!STAYS, text} : Value{STAYS, {}};
}

template <auto Get>
Value orEmpty(const WifiNetwork& network) {
    const char* const text = std::invoke(Get, network);
    return {!STAYS, text ? text : EMPTY};
}

template <auto Get>
Value masked(const WifiNetwork& network) {
    const char* const text = std::invoke(Get, network);
    return text && std::strcmp(text, MASK) == 0 ? Value{} : orEmpty<Get>(network);
}

// Signed, as the supplicant's numbers are: the highest unsigned ones come out negative.
template <auto Get>
Value decimal(const WifiNetwork& network) {
    return {!STAYS, std::to_string(static_cast<int>(std::invoke(Get, network)))};
}

// Sets are compared as a whole: several flags together have no word, and the supplicant keeps what it has.
template <auto Get, const auto& Table>
Value oneWord(const WifiNetwork& network) {
    const unsigned int number = std::invoke(Get, network);
    const Word* const word = wordFor(Table, number);
    return word ? Value{!STAYS, word->text} : Value{number == 0, {}};
}

bool isAnyBssid(const char* bssid) {
    return !bssid || std::strcmp(bssid, "any") == 0;
}

Value bssid(const WifiNetwork& network) {
    const char* const text = network.getBssid();
    return {!STAYS, isAnyBssid(text) ? NO_BSSID : text};
}

// Asked by name only, a network that hides its name answers.
Value scanByName(const WifiNetwork& network) {
    return {!STAYS, network.getSsidBroadcasted() ? "0" : "1"};
}

struct Flag {
    bool (*isSet)(const WifiNetwork&);
    void (*clear)(WifiNetwork&);
};

template <auto Get, auto Set>
constexpr Flag FLAG{[](const WifiNetwork& network) { return (network.*Get)(); },
                    [](WifiNetwork& network) { (network.*Set)(false); }};

template <unsigned char Slot>
constexpr Flag WEP_KEY{[](const WifiNetwork& network) { return network.getWepKeyDirty(Slot); },
                       [](WifiNetwork& network) { network.setWepKeyDirty(false, Slot); }};

#define DIRTY(Field) FLAG<&WifiNetwork::get##Field##Dirty, &WifiNetwork::set##Field##Dirty>

struct SavedField {
    Flag dirty;
    const char* key;
    Value (*value)(const WifiNetwork&);
    const char* command = nullptr; // of the client, which is given the value right after
};

using N = WifiNetwork;

// In the order in which they are written.
constexpr SavedField FIELDS[] = {
    {DIRTY(Ssid), "ssid", required<&N::getSsid>},
    {DIRTY(Bssid), "bssid", bssid, "bssid"},
    {DIRTY(SsidBroadcasted), "scan_ssid", scanByName},
    {DIRTY(KeyManagement), "key_mgmt", oneWord<&N::getKeyManagement, KEY_MANAGEMENT_WORDS>},
    {DIRTY(Priority), "priority", decimal<&N::getPriority>},
    {DIRTY(NetworkMode), "mode", decimal<&N::getNetworkMode>},
    {DIRTY(AuthAlg), "auth_alg", oneWord<&N::getAuthAlg, AUTH_ALG_WORDS>},
    {DIRTY(PairwiseCiphers), "pairwise", oneWord<&N::getPairwiseCiphers, PAIRWISE_WORDS>},
    {DIRTY(GroupCiphers), "group", oneWord<&N::getGroupCiphers, GROUP_WORDS>},
    {DIRTY(EapModes), "eap", oneWord<&N::getEapModes, EAP_WORDS>},
    {DIRTY(Protocol), "proto", oneWord<&N::getProtocol, PROTOCOL_WORDS>},
    {DIRTY(WepIndex), "wep_tx_keyidx", decimal<&N::getWepIndex>},
    {WEP_KEY<0>, "wep_key0", masked<wepKey<0>>},
    {WEP_KEY<1>, "wep_key1", masked<wepKey<1>>},
    {WEP_KEY<2>, "wep_key2", masked<wepKey<2>>},
    {WEP_KEY<3>, "wep_key3", masked<wepKey<3>>},
    {DIRTY(EAPIdentity), "identity", orEmpty<&N::getEAPIdentity>},
    {DIRTY(EAPAnonymousIdentity), "anonymous_identity", orEmpty<&N::getEAPAnonymousIdentity>},
    {DIRTY(EAPPassword), "password", masked<&N::getEAPPassword>},
    {DIRTY(Psk), "psk", masked<&N::getPsk>},
    {DIRTY(CACertificate), "ca_cert", orEmpty<&N::getCACertificate>},
    {DIRTY(CACertificateDir), "ca_path", orEmpty<&N::getCACertificateDir>},
    {DIRTY(ClientCertificate), "client_cert", orEmpty<&N::getClientCertificate>},
    {DIRTY(PrivateKeyFile), "private_key", orEmpty<&N::getPrivateKeyFile>},
    {DIRTY(PrivateKeyPassword), "private_key_passwd", masked<&N::getPrivateKeyPassword>},
    {DIRTY(Phase1Step), "phase1", orEmpty<&N::getPhase1Step>},
    {DIRTY(Phase2Step), "phase2", orEmpty<&N::getPhase2Step>},
    {DIRTY(CACertificate2), "ca_cert2", orEmpty<&N::getCACertificate2>},
    {DIRTY(CACertificateDir2), "ca_path2", orEmpty<&N::getCACertificateDir2>},
    {DIRTY(ClientCertificate2), "client_cert2", orEmpty<&N::getClientCertificate2>},
    {DIRTY(PrivateKeyFile2), "private_key2", orEmpty<&N::getPrivateKeyFile2>},
    {DIRTY(PrivateKeyPassword2), "private_key_passwd2", masked<&N::getPrivateKeyPassword2>},
};

#undef DIRTY

// Whether the supplicant takes a value does not change what is sent, deliberately: saving the
// configuration alone decides.
class FieldWriter {
public:
    FieldWriter(WifiUtil& util, const char* iface, WifiNetwork& network, const FieldObserver& sent)
        : m_util(util), m_iface(iface), m_network(network), m_sent(sent) {}

    void save(const SavedField& field) const {
        const Value value = field.value(m_network);
        if (value.stays)
            return;
        if (value.text)
            write(field, value.text->c_str());
        field.dirty.clear(m_network);
    }

private:
    void write(const SavedField& field, const char* value) const {
        const unsigned char id = m_network.getNetworkId();
        const bool accepted = m_util.setNetworkValue(m_iface, id, field.key, value);
        if (m_sent)
            m_sent(field.key, value, accepted);
        if (field.command)
            m_util.executeCustom(m_iface, id, field.command, value);
    }

    WifiUtil& m_util;
    const char* m_iface;
    WifiNetwork& m_network;
    const FieldObserver& m_sent;
};

} // namespace

void saveDirtyFields(WifiUtil& util, const char* iface, WifiNetwork& network,
                     const FieldObserver& sent) noexcept {
    const FieldWriter writer(util, iface, network, sent);
    for (const SavedField& field : FIELDS) {
        if (field.dirty.isSet(network))
            writer.save(field);
    }
}

} // namespace platwifi
