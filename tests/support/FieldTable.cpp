#include "support/FieldTable.h"

using platwifi::Field;

namespace test {

// The anonymous identity's getter reads the identity; see API-1. There is one getter for all WEP keys, and
// one for both sets of ciphers.
// clang-format off
const std::vector<FieldRow>& fieldRows() {
    static const std::vector<FieldRow> rows = {
        {Field::SSID, "ssid", "ssid", "ssid", nullptr, nullptr, "ssid", "Network SSID    :"},
        {Field::BSSID, "bssid", "bssid", "bssid", "getBssid0", "setPreferredBssid0", "bssid", "Network BSSID   :"},
        {Field::PSK, "psk", "psk", "psk", "getPreSharedKey0", "setPreSharedKey0", "psk", "Pre Shared Key  :"},
        {Field::EAP_IDENTITY, "EAPIdentity", "identity", "eapIdentity", "getEAPIdentity0", "setEAPIdentity0", "eapIdentity", "EAP Identity                  :"},
        {Field::EAP_ANONYMOUS_IDENTITY, "EAPAnonymousIdentity", "anonymous_identity", "eapAnonymousIdentity", "getEAPAnonymousIdentity0", "setEAPAnonymousIdentity0", "eapAnonymousIdentity", "EAP Anonymous Identity        :"},
        {Field::EAP_PASSWORD, "EAPPassword", "password", "eapPassword", "getEAPPassword0", "setEAPPassword0", "eapPassword", "EAP Password                  :"},
        {Field::CA_CERTIFICATE, "CACertificate", "ca_cert", "CACertificateFile", "getCACertificate0", "setCACertificate0", "CACertificateFile", "Outer CA Certificate File     :"},
        {Field::CA_CERTIFICATE_DIR, "CACertificateDir", "ca_path", "CACertificateDir", "getCACertificateDir0", "setCACertificateDir0", "CACertificateDir", "Outer CA Certificate Path     :"},
        {Field::CLIENT_CERTIFICATE, "ClientCertificate", "client_cert", "clientCertificate", "getClientCertificate0", "setClientCertificate0", "clientCertificate", "Outer Client Certificate      :"},
        {Field::PRIVATE_KEY_FILE, "PrivateKeyFile", "private_key", "privateKeyFile", "getPrivateKeyFile0", "setPrivateKeyFile0", "privateKeyFile", "Outer Private Key File        :"},
        {Field::PRIVATE_KEY_PASSWORD, "PrivateKeyPassword", "private_key_passwd", "privateKeyPassword", "getPrivateKeyPassword0", "setPrivateKeyPassword0", "privateKeyPassword", "Outer Private Key Password    :"},
        {Field::PHASE1_STEP, "Phase1Step", "phase1", "phase1", "getTunnelPhase10", "setTunnelPhase10", "phase1", "Phase 1                       :"},
        {Field::PHASE2_STEP, "Phase2Step", "phase2", "phase2", "getTunnelPhase20", "setTunnelPhase20", "phase2", "Phase 2                       :"},
        {Field::CA_CERTIFICATE2, "CACertificate2", "ca_cert2", "CACertificateFile2", "getCACertificate20", "setCACertificate20", "CACertificateFile2", "Inner CA Certificate File     :"},
        {Field::CA_CERTIFICATE_DIR2, "CACertificateDir2", "ca_path2", "CACertificateDir2", "getCACertificateDir20", "setCACertificateDir20", "CACertificateDir2", "Inner CA Certificate Path     :"},
        {Field::CLIENT_CERTIFICATE2, "ClientCertificate2", "client_cert2", "clientCertificate2", "getClientCertificate20", "setClientCertificate20", "clientCertificate2", "Inner Client Certificate      :"},
        {Field::PRIVATE_KEY_FILE2, "PrivateKeyFile2", "private_key2", "privateKeyFile2", "getPrivateKeyFile20", "setPrivateKeyFile20", "privateKeyFile2", "Inner Private Key File        :"},
        {Field::PRIVATE_KEY_PASSWORD2, "PrivateKeyPassword2", "private_key_passwd2", "privateKeyPassword2", "getPrivateKeyPassword20", "setPrivateKeyPassword20", "privateKeyPassword2", "Inner Private Key Password    :"},
        {Field::WEP_KEY0, "wepKey0", "wep_key0", "key1", nullptr, nullptr, "key1", "WEP Key 0       :"},
        {Field::WEP_KEY1, "wepKey1", "wep_key1", "key2", nullptr, nullptr, "key2", "WEP Key 1       :"},
        {Field::WEP_KEY2, "wepKey2", "wep_key2", "key3", nullptr, nullptr, "key3", "WEP Key 2       :"},
        {Field::WEP_KEY3, "wepKey3", "wep_key3", "key4", nullptr, nullptr, "key4", "WEP Key 3       :"},
        {Field::IP_ADDRESS, "ipAddress", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
        {Field::SSID_BROADCASTED, "ssidBroadcasted", "scan_ssid", "ssidBroadcasted", "getSsidBroadcasted0", "setSsidBroadcasted0", "ssidBroadcasted", "SSID Broadcast  :"},
        {Field::NETWORK_MODE, "networkMode", "mode", "mode", "getNetworkMode0", "setNetworkMode0", "mode", "Network Mode    :"},
        {Field::CHANNEL, "channel", nullptr, "channel", "getChannel0", nullptr, "channel", "Channel         :"},
        {Field::PRIORITY, "priority", "priority", "priority", "getPriority0", "setPriority0", "priority", "Priority        :"},
        {Field::PROTOCOL, "protocol", "proto", "protocol", "getProtocol0", "setProtocol0", "protocol", "Protocol        :"},
        {Field::KEY_MANAGEMENT, "keyManagement", "key_mgmt", "key_mgmt", "getKeyManagement0", "setKeyManagement0", "key_mgmt", "KeyManagement   :"},
        {Field::AUTH_ALG, "authAlg", "auth_alg", "authentication", "getAuthentication0", "setAuthentication0", "authentication", "AUTH_ALG        :"},
        {Field::GROUP_CIPHERS, "groupCiphers", "group", "encryption", nullptr, nullptr, "encryption", "Group           :"},
        {Field::PAIRWISE_CIPHERS, "pairwiseCiphers", "pairwise", "encryption", nullptr, nullptr, "encryption", "Pairwise        :"},
        {Field::EAP_MODES, "eapModes", "eap", "eap", "getEAPMethod0", "setEAPMethod0", "eap", "EAP Modes       :"},
        {Field::WEP_INDEX, "wepIndex", "wep_tx_keyidx", "index", "getWepIndex0", "setWepIndex0", "index", "WEP Index       :"},
        {Field::PMF, "pmf", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr}, // has names under the profile "modern" alone
        {Field::NETWORK_ID, "networkId", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
        {Field::NETWORK_STATUS, "networkStatus", nullptr, "status", "getNetworkStatus0", "setNetworkStatus0", "status", nullptr},
        {Field::STRENGTH, "strength", nullptr, "strength", "getStrength0", "setSignalStrength0", "strength", "Strength        :"},
    };
    return rows;
}
// clang-format on

const FieldRow& rowOf(Field field) {
    return fieldRows()[indexOf(field)];
}

bool isText(const FieldRow& row) {
    return indexOf(row.field) < platwifi::TEXT_FIELD_COUNT;
}

bool isEnciphered(const FieldRow& row) {
    switch (row.field) {
    case Field::PSK:
    case Field::EAP_PASSWORD:
    case Field::PRIVATE_KEY_PASSWORD:
    case Field::PRIVATE_KEY_PASSWORD2:
        return true;
    default:
        return false;
    }
}

} // namespace test
