#include "NetworkRows.h"

namespace test {
namespace {

using Network = WifiNetwork;

std::string orNull(const char* text) {
    return text ? text : "null";
}

} // namespace

const std::vector<TextRow>& textRows() {
    static const std::vector<TextRow> rows = {
        {"ssid", &Network::setSsid, &Network::getSsid},
        {"bssid", &Network::setBssid, &Network::getBssid},
        {"psk", &Network::setPsk, &Network::getPsk},
        {"EAPIdentity", &Network::setEAPIdentity, &Network::getEAPIdentity},
        {"EAPAnonymousIdentity", &Network::setEAPAnonymousIdentity,
         &Network::getEAPAnonymousIdentity},
        {"EAPPassword", &Network::setEAPPassword, &Network::getEAPPassword},
        {"CACertificate", &Network::setCACertificate, &Network::getCACertificate},
        {"CACertificateDir", &Network::setCACertificateDir, &Network::getCACertificateDir},
        {"ClientCertificate", &Network::setClientCertificate, &Network::getClientCertificate},
        {"PrivateKeyFile", &Network::setPrivateKeyFile, &Network::getPrivateKeyFile},
        {"PrivateKeyPassword", &Network::setPrivateKeyPassword, &Network::getPrivateKeyPassword},
        {"Phase1Step", &Network::setPhase1Step, &Network::getPhase1Step},
        {"Phase2Step", &Network::setPhase2Step, &Network::getPhase2Step},
        {"CACertificate2", &Network::setCACertificate2, &Network::getCACertificate2},
        {"CACertificateDir2", &Network::setCACertificateDir2, &Network::getCACertificateDir2},
        {"ClientCertificate2", &Network::setClientCertificate2, &Network::getClientCertificate2},
        {"PrivateKeyFile2", &Network::setPrivateKeyFile2, &Network::getPrivateKeyFile2},
        {"PrivateKeyPassword2", &Network::setPrivateKeyPassword2, &Network::getPrivateKeyPassword2},
    };
    return rows;
}

const std::vector<NumberRow>& numberRows() {
    static const std::vector<NumberRow> rows = {
        {"channel", &Network::setChannel, &Network::getChannel},
        {"priority", &Network::setPriority, &Network::getPriority},
        {"protocol", &Network::setProtocol, &Network::getProtocol},
        {"keyManagement", &Network::setKeyManagement, &Network::getKeyManagement},
        {"authAlg", &Network::setAuthAlg, &Network::getAuthAlg},
        {"groupCiphers", &Network::setGroupCiphers, &Network::getGroupCiphers},
        {"pairwiseCiphers", &Network::setPairwiseCiphers, &Network::getPairwiseCiphers},
        {"eapModes", &Network::setEapModes, &Network::getEapModes},
    };
    return rows;
}

const std::vector<FlagRow>& flagRows() {
    static const std::vector<FlagRow> rows = {
        {"ssid", &Network::setSsidDirty, &Network::getSsidDirty},
        {"bssid", &Network::setBssidDirty, &Network::getBssidDirty},
        {"ssidBroadcasted", &Network::setSsidBroadcastedDirty, &Network::getSsidBroadcastedDirty},
        {"networkMode", &Network::setNetworkModeDirty, &Network::getNetworkModeDirty},
        {"channel", &Network::setChannelDirty, &Network::getChannelDirty},
        {"priority", &Network::setPriorityDirty, &Network::getPriorityDirty},
        {"protocol", &Network::setProtocolDirty, &Network::getProtocolDirty},
        {"keyManagement", &Network::setKeyManagementDirty, &Network::getKeyManagementDirty},
        {"authAlg", &Network::setAuthAlgDirty, &Network::getAuthAlgDirty},
        {"groupCiphers", &Network::setGroupCiphersDirty, &Network::getGroupCiphersDirty},
        {"pairwiseCiphers", &Network::setPairwiseCiphersDirty, &Network::getPairwiseCiphersDirty},
        {"wepIndex", &Network::setWepIndexDirty, &Network::getWepIndexDirty},
        {"psk", &Network::setPskDirty, &Network::getPskDirty},
        {"eapModes", &Network::setEapModesDirty, &Network::getEapModesDirty},
        {"EAPIdentity", &Network::setEAPIdentityDirty, &Network::getEAPIdentityDirty},
        {"EAPAnonymousIdentity", &Network::setEAPAnonymousIdentityDirty,
         &Network::getEAPAnonymousIdentityDirty},
        {"EAPPassword", &Network::setEAPPasswordDirty, &Network::getEAPPasswordDirty},
        {"CACertificate", &Network::setCACertificateDirty, &Network::getCACertificateDirty},
        {"CACertificateDir", &Network::setCACertificateDirDirty,
         &Network::getCACertificateDirDirty},
        {"ClientCertificate", &Network::setClientCertificateDirty,
         &Network::getClientCertificateDirty},
        {"PrivateKeyFile", &Network::setPrivateKeyFileDirty, &Network::getPrivateKeyFileDirty},
        {"PrivateKeyPassword", &Network::setPrivateKeyPasswordDirty,
         &Network::getPrivateKeyPasswordDirty},
        {"Phase1Step", &Network::setPhase1StepDirty, &Network::getPhase1StepDirty},
        {"Phase2Step", &Network::setPhase2StepDirty, &Network::getPhase2StepDirty},
        {"CACertificate2", &Network::setCACertificate2Dirty, &Network::getCACertificate2Dirty},
        {"CACertificateDir2", &Network::setCACertificateDir2Dirty,
         &Network::getCACertificateDir2Dirty},
        {"ClientCertificate2", &Network::setClientCertificate2Dirty,
         &Network::getClientCertificate2Dirty},
        {"PrivateKeyFile2", &Network::setPrivateKeyFile2Dirty, &Network::getPrivateKeyFile2Dirty},
        {"PrivateKeyPassword2", &Network::setPrivateKeyPassword2Dirty,
         &Network::getPrivateKeyPassword2Dirty},
    };
    return rows;
}

std::vector<std::string> valuesOf(const WifiNetwork& network) {
    std::vector<std::string> values;
    for (const TextRow& row : textRows())
        values.push_back(row.name + ("=" + orNull((network.*row.get)())));
    for (const NumberRow& row : numberRows())
        values.push_back(row.name + ("=" + std::to_string((network.*row.get)())));
    for (unsigned int slot = 0; slot < 4; ++slot)
        values.push_back("wepKey" + std::to_string(slot) + "=" + orNull(network.getWepKey(slot)));
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
