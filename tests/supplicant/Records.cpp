#include "Records.h"

#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"

#include <algorithm>

namespace test {
namespace {

Record recordOf(const WifiNetwork& network) {
    return {
        {"ssid", inWords(network.getSsid())},
        {"id", inWords(network.getNetworkId())},
        {"status", inWords(network.getNetworkStatus())},
        {"bssid", inWords(network.getBssid())},
        {"mode", inWords(network.getNetworkMode())},
        {"priority", inWords(network.getPriority())},
        {"key_mgmt", inWords(network.getKeyManagement())},
        {"psk", inWords(network.getPsk())},
        {"pairwise", inWords(network.getPairwiseCiphers())},
        {"group", inWords(network.getGroupCiphers())},
        {"proto", inWords(network.getProtocol())},
        {"eap", inWords(network.getEapModes())},
        {"auth_alg", inWords(network.getAuthAlg())},
        {"wep_tx_keyidx", inWords(network.getWepIndex())},
        {"wep_key0", inWords(network.getWepKey(0))},
        {"wep_key1", inWords(network.getWepKey(1))},
        {"wep_key2", inWords(network.getWepKey(2))},
        {"wep_key3", inWords(network.getWepKey(3))},
        {"broadcast", inWords(network.getSsidBroadcasted())},
        {"identity", inWords(network.getEAPIdentity())},
        {"anonymous_identity", inWords(network.getEAPAnonymousIdentity())},
        {"password", inWords(network.getEAPPassword())},
        {"private_key_passwd", inWords(network.getPrivateKeyPassword())},
        {"ca_cert", inWords(network.getCACertificate())},
        {"ca_path", inWords(network.getCACertificateDir())},
        {"client_cert", inWords(network.getClientCertificate())},
        {"private_key", inWords(network.getPrivateKeyFile())},
        {"phase1", inWords(network.getPhase1Step())},
        {"phase2", inWords(network.getPhase2Step())},
        {"private_key_passwd2", inWords(network.getPrivateKeyPassword2())},
        {"ca_cert2", inWords(network.getCACertificate2())},
        {"ca_path2", inWords(network.getCACertificateDir2())},
        {"client_cert2", inWords(network.getClientCertificate2())},
        {"private_key2", inWords(network.getPrivateKeyFile2())},
        {"channel", inWords(network.getChannel())},
        {"strength", inWords(network.getStrength())},
        {"ip_address", inWords(network.getIpAddress())},
        {"changed", inWords(network.getNetworkDirty() || network.getEAPAnonymousIdentityDirty())},
    };
}

const WifiNetwork* headOf(WifiHostSettings& settings) {
    platwifi::ReplyLines ssids(1);
    settings.getNetworkDatabaseSsids(nullptr, ssids.data(), ssids.capacity(), &ssids.count);
    return ssids.count == 0 ? nullptr : settings.getNetwork(nullptr, ssids.data()[0]);
}

const std::string& fieldOf(const Record& record, const std::string& field) {
    static const std::string MISSING = "missing";
    const auto found = record.find(field);
    return found == record.end() ? MISSING : found->second;
}

void addDifferences(Lines& lines, const std::string& network, const Record& loaded,
                    const Record& expected) {
    for (const auto& [field, value] : expected) {
        if (fieldOf(loaded, field) != value)
            lines.push_back(network + " (" + fieldOf(expected, "ssid") + "): " + field + " is " +
                            fieldOf(loaded, field) + " instead of " + value);
    }
}

} // namespace

Records loadedRecords(WifiHostSettings& settings) {
    const platwifi::SettingsLock lock(settings);
    Records records;
    for (const WifiNetwork* network = headOf(settings); network; network = network->getNext())
        records.push_back(recordOf(*network));
    return records;
}

Lines differences(const Records& loaded, const Records& expected) {
    Lines lines;
    if (loaded.size() != expected.size())
        lines.push_back(std::to_string(loaded.size()) + " networks instead of " +
                        std::to_string(expected.size()));
    for (std::size_t i = 0; i < std::min(loaded.size(), expected.size()); ++i)
        addDifferences(lines, "network " + std::to_string(i), loaded[i], expected[i]);
    return lines;
}

Lines ssidsOf(const Records& records) {
    Lines ssids;
    for (const Record& record : records)
        ssids.push_back(fieldOf(record, "ssid"));
    return ssids;
}

std::string inWords(const char* text) {
    return text ? text : "not set";
}

std::string inWords(unsigned int number) {
    return std::to_string(number);
}

} // namespace test
