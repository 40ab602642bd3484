#include "NetworkRows.h"

using platwifi::Field;

namespace test {
namespace {

using Network = WifiNetwork;

// Each field with the part of its accessors' names behind "set" and "get".
// clang-format off
#define TEXTS(ROW)                                      \
    ROW(SSID, Ssid)                                     \
    ROW(BSSID, Bssid)                                   \
    ROW(PSK, Psk)                                       \
    ROW(EAP_IDENTITY, EAPIdentity)                      \
    ROW(EAP_ANONYMOUS_IDENTITY, EAPAnonymousIdentity)   \
    ROW(EAP_PASSWORD, EAPPassword)                      \
    ROW(CA_CERTIFICATE, CACertificate)                  \
    ROW(CA_CERTIFICATE_DIR, CACertificateDir)           \
    ROW(CLIENT_CERTIFICATE, ClientCertificate)          \
    ROW(PRIVATE_KEY_FILE, PrivateKeyFile)               \
    ROW(PRIVATE_KEY_PASSWORD, PrivateKeyPassword)       \
    ROW(PHASE1_STEP, Phase1Step)                        \
    ROW(PHASE2_STEP, Phase2Step)                        \
    ROW(CA_CERTIFICATE2, CACertificate2)                \
    ROW(CA_CERTIFICATE_DIR2, CACertificateDir2)         \
    ROW(CLIENT_CERTIFICATE2, ClientCertificate2)        \
    ROW(PRIVATE_KEY_FILE2, PrivateKeyFile2)             \
    ROW(PRIVATE_KEY_PASSWORD2, PrivateKeyPassword2)

#define NUMBERS(ROW)                                    \
    ROW(CHANNEL, Channel)                               \
    ROW(PRIORITY, Priority)                             \
    ROW(PROTOCOL, Protocol)                             \
    ROW(KEY_MANAGEMENT, KeyManagement)                  \
    ROW(AUTH_ALG, AuthAlg)                              \
    ROW(GROUP_CIPHERS, GroupCiphers)                    \
    ROW(PAIRWISE_CIPHERS, PairwiseCiphers)              \
    ROW(EAP_MODES, EapModes)

#define OTHERS(ROW)                                     \
    ROW(SSID_BROADCASTED, SsidBroadcasted)              \
    ROW(NETWORK_MODE, NetworkMode)                      \
    ROW(WEP_INDEX, WepIndex)                            \
    ROW(PMF, Pmf)
// clang-format on

#define VALUE(field, name) {Field::field, &Network::set##name, &Network::get##name},
#define FLAG(field, name) {Field::field, &Network::set##name##Dirty, &Network::get##name##Dirty},

std::string orNull(const char* text) {
    return text ? text : "null";
}

} // namespace

const std::vector<TextRow>& textRows() {
    static const std::vector<TextRow> rows = {TEXTS(VALUE)};
    return rows;
}

const std::vector<NumberRow>& numberRows() {
    static const std::vector<NumberRow> rows = {NUMBERS(VALUE)};
    return rows;
}

const std::vector<FlagRow>& flagRows() {
    static const std::vector<FlagRow> rows = {TEXTS(FLAG) NUMBERS(FLAG) OTHERS(FLAG)};
    return rows;
}

bool hasFlag(const FieldRow& row) {
    switch (row.field) {
    case Field::IP_ADDRESS:
    case Field::NETWORK_ID:
    case Field::NETWORK_STATUS:
    case Field::STRENGTH:
        return false;
    default:
        return true;
    }
}

FieldValues valuesOf(const WifiNetwork& network) {
    FieldValues values;
    for (const TextRow& row : textRows())
        values.push_back(row.name + ("=" + orNull((network.*row.get)())));
    for (const NumberRow& row : numberRows())
        values.push_back(row.name + ("=" + std::to_string((network.*row.get)())));
    for (unsigned int slot = 0; slot < 4; ++slot)
        values.push_back("wepKey" + std::to_string(slot) + "=" + orNull(network.getWepKey(slot)));
    values.push_back("pmf=" + std::to_string(network.getPmf()));
    values.push_back("wepIndex=" + std::to_string(network.getWepIndex()));
    values.push_back("ssidBroadcasted=" + std::to_string(network.getSsidBroadcasted()));
    values.push_back("networkMode=" + std::to_string(network.getNetworkMode()));
    values.push_back("networkId=" + std::to_string(network.getNetworkId()));
    values.push_back("networkStatus=" + std::to_string(network.getNetworkStatus()));
    values.push_back("strength=" + std::to_string(network.getStrength()));
    values.push_back("ipAddress=" + orNull(network.getIpAddress()));
    values.emplace_back(network.getNext() ? "next" : "next=null");
    return values;
}

FieldValues changesSince(const FieldValues& before, const WifiNetwork& network) {
    const FieldValues after = valuesOf(network);
    FieldValues changes;
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (after[i] != before[i])
            changes.push_back(after[i]);
    }
    return changes;
}

std::vector<std::string> dirtyOf(const WifiNetwork& network) {
    std::vector<std::string> names;
    for (const FlagRow& row : flagRows()) {
        if ((network.*row.get)())
            names.emplace_back(row.name);
    }
    for (unsigned char slot = 0; slot < 4; ++slot) {
        if (network.getWepKeyDirty(slot))
            names.push_back("wepKey" + std::to_string(slot));
    }
    return names;
}

void markAll(WifiNetwork& network) {
    for (const FlagRow& row : flagRows())
        (network.*row.set)(true);
    for (unsigned char slot = 0; slot < 4; ++slot)
        network.setWepKeyDirty(true, slot);
}

} // namespace test
