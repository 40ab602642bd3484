#include "settings/report/NetworkDump.h"

#include "model/NetworkFunctions.h"
#include "settings/report/DumpWords.h"

#include <functional>
#include <string>

namespace platwifi {
namespace {

struct Line {
    const char* label;
    std::string (*value)(const WifiNetwork&);
    bool (*isShown)(const WifiNetwork&) = nullptr; // null: always
};

// `Get` is a getter of WifiNetwork, or a function that takes a network.

template <auto Get>
std::string text(const WifiNetwork& network) {
    const char* const value = std::invoke(Get, network);
    return std::string(" ") + (value ? value : "");
}

// Printed as signed: a number above INT_MAX is negative.
template <auto Get>
std::string number(const WifiNetwork& network) {
    return " " + std::to_string(static_cast<int>(std::invoke(Get, network)));
}

template <auto Get, auto Words>
std::string words(const WifiNetwork& network) {
    return Words(std::invoke(Get, network));
}

std::string broadcast(const WifiNetwork& network) {
    return network.getSsidBroadcasted() ? " yes" : " no";
}

// The WEP index and the other keys are shown only where the first key is set.
template <unsigned int Slot>
bool hasWepKey(const WifiNetwork& network) {
    return network.getWepKey(0) && network.getWepKey(Slot);
}

using N = WifiNetwork;

constexpr Line LINES[] = {
    {"Network SSID    :", text<&N::getSsid>},
    {"Network BSSID   :", text<&N::getBssid>},
    {"Channel         :", number<&N::getChannel>},
    {"Strength        :", number<&N::getStrength>},
    {"SSID Broadcast  :", broadcast},
    {"Priority        :", number<&N::getPriority>},
    {"Network Mode    :", words<&N::getNetworkMode, networkModeWord>},
    {"Protocol        :", words<&N::getProtocol, protocolWords>},
    {"KeyManagement   :", words<&N::getKeyManagement, keyManagementWords>},
    {"Pairwise        :", words<&N::getPairwiseCiphers, pairwiseWords>},
    {"Group           :", words<&N::getGroupCiphers, groupWords>},
    {"EAP Modes       :", words<&N::getEapModes, eapModeWords>},
    {"AUTH_ALG        :", words<&N::getAuthAlg, authAlgWord>},
    {"Pre Shared Key  :", text<&N::getPsk>},
    {"WEP Index       :", number<&N::getWepIndex>, hasWepKey<0>},
    {"WEP Key 0       :", text<wepKey<0>>, hasWepKey<0>},
    {"WEP Key 1       :", text<wepKey<1>>, hasWepKey<1>},
    {"WEP Key 2       :", text<wepKey<2>>, hasWepKey<2>},
    {"WEP Key 3       :", text<wepKey<3>>, hasWepKey<3>},
    {"EAP Identity                  :", text<&N::getEAPIdentity>},
    {"EAP Anonymous Identity        :", text<&N::getEAPAnonymousIdentity>},
    {"EAP Password                  :", text<&N::getEAPPassword>},
    {"Outer Private Key Password    :", text<&N::getPrivateKeyPassword>},
    {"Outer CA Certificate File     :", text<&N::getCACertificate>},
    {"Outer CA Certificate Path     :", text<&N::getCACertificateDir>},
    {"Outer Client Certificate      :", text<&N::getClientCertificate>},
    {"Outer Private Key File        :", text<&N::getPrivateKeyFile>},
    {"Phase 1                       :", text<&N::getPhase1Step>},
    {"Phase 2                       :", text<&N::getPhase2Step>},
    {"Inner Private Key Password    :", text<&N::getPrivateKeyPassword2>},
    {"Inner CA Certificate File     :", text<&N::getCACertificate2>},
    {"Inner CA Certificate Path     :", text<&N::getCACertificateDir2>},
    {"Inner Client Certificate      :", text<&N::getClientCertificate2>},
    {"Inner Private Key File        :", text<&N::getPrivateKeyFile2>},
};

} // namespace

void printNetwork(std::FILE* out, const WifiNetwork& network) {
    for (const Line& line : LINES) {
        if (!line.isShown || line.isShown(network))
            std::fprintf(out, "\t%s%s\n", line.label, line.value(network).c_str());
    }
    std::fputs("\n", out);
}

} // namespace platwifi
