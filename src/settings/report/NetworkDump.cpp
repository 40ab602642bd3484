#include "settings/report/NetworkDump.h"

#include "Profile.h"
#include "model/NetworkFields.h"
#include "settings/report/DumpWords.h"

#include <string>

namespace platwifi {
namespace {

// A field's value as the dump shows it, behind a blank.
using Print = std::string (*)(const NetworkFields&, Field);

std::string text(const NetworkFields& fields, Field field) {
    const char* const value = fields.text(field);
    return std::string(" ") + (value ? value : "");
}

// Printed as signed: a number above INT_MAX is negative.
std::string number(const NetworkFields& fields, Field field) {
    return " " + std::to_string(static_cast<int>(fields.number(field)));
}

template <std::string (*WORDS)(unsigned int)>
std::string words(const NetworkFields& fields, Field field) {
    return WORDS(fields.number(field));
}

std::string yesOrNo(const NetworkFields& fields, Field field) {
    return fields.number(field) != 0 ? " yes" : " no";
}

using IsShown = bool (*)(const NetworkFields&, Field);

bool always(const NetworkFields& /*fields*/, Field /*field*/) {
    return true;
}

bool ifKnown(const NetworkFields& /*fields*/, Field /*field*/) {
    return rule::TODAYS_SECURITY_IS_KNOWN();
}

bool ifWep(const NetworkFields& fields, Field /*field*/) {
    return fields.text(Field::WEP_KEY0) != nullptr;
}

// The other keys, too, are shown only where the first key is set.
bool ifWepKey(const NetworkFields& fields, Field key) {
    return ifWep(fields, key) && fields.text(key);
}

struct Line {
    const char* label;
    Field field;
    Print print;
    IsShown isShown = always;
};

constexpr Line LINES[] = {
    {"Network SSID    :", Field::SSID, text},
    {"Network BSSID   :", Field::BSSID, text},
    {"Channel         :", Field::CHANNEL, number},
    {"Strength        :", Field::STRENGTH, number},
    {"SSID Broadcast  :", Field::SSID_BROADCASTED, yesOrNo},
    {"Priority        :", Field::PRIORITY, number},
    {"Network Mode    :", Field::NETWORK_MODE, words<networkModeWord>},
    {"Protocol        :", Field::PROTOCOL, words<protocolWords>},
    {"KeyManagement   :", Field::KEY_MANAGEMENT, words<keyManagementWords>},
    {"PMF             :", Field::PMF, words<pmfWord>, ifKnown},
    {"Pairwise        :", Field::PAIRWISE_CIPHERS, words<pairwiseWords>},
    {"Group           :", Field::GROUP_CIPHERS, words<groupWords>},
    {"EAP Modes       :", Field::EAP_MODES, words<eapModeWords>},
    {"AUTH_ALG        :", Field::AUTH_ALG, words<authAlgWord>},
    {"Pre Shared Key  :", Field::PSK, text},
    {"WEP Index       :", Field::WEP_INDEX, number, ifWep},
    {"WEP Key 0       :", Field::WEP_KEY0, text, ifWepKey},
    {"WEP Key 1       :", Field::WEP_KEY1, text, ifWepKey},
    {"WEP Key 2       :", Field::WEP_KEY2, text, ifWepKey},
    {"WEP Key 3       :", Field::WEP_KEY3, text, ifWepKey},
    {"EAP Identity                  :", Field::EAP_IDENTITY, text},
    {"EAP Anonymous Identity        :", Field::EAP_ANONYMOUS_IDENTITY, text},
    {"EAP Password                  :", Field::EAP_PASSWORD, text},
    {"Outer Private Key Password    :", Field::PRIVATE_KEY_PASSWORD, text},
    {"Outer CA Certificate File     :", Field::CA_CERTIFICATE, text},
    {"Outer CA Certificate Path     :", Field::CA_CERTIFICATE_DIR, text},
    {"Outer Client Certificate      :", Field::CLIENT_CERTIFICATE, text},
    {"Outer Private Key File        :", Field::PRIVATE_KEY_FILE, text},
    {"Phase 1                       :", Field::PHASE1_STEP, text},
    {"Phase 2                       :", Field::PHASE2_STEP, text},
    {"Inner Private Key Password    :", Field::PRIVATE_KEY_PASSWORD2, text},
    {"Inner CA Certificate File     :", Field::CA_CERTIFICATE2, text},
    {"Inner CA Certificate Path     :", Field::CA_CERTIFICATE_DIR2, text},
    {"Inner Client Certificate      :", Field::CLIENT_CERTIFICATE2, text},
    {"Inner Private Key File        :", Field::PRIVATE_KEY_FILE2, text},
};

} // namespace

void printNetwork(std::FILE* out, const WifiNetwork& network) {
    const NetworkFields& fields = NetworkFields::of(network);
    for (const Line& line : LINES) {
        if (line.isShown(fields, line.field))
            std::fprintf(out, "\t%s%s\n", line.label, line.print(fields, line.field).c_str());
    }
    std::fputs("\n", out);
}

} // namespace platwifi
