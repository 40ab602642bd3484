#include "connection/RangeJudge.h"

#include "model/Vocabulary.h"

#include <algorithm>
#include <string>

namespace cli {
namespace {

constexpr unsigned int WITHOUT_WPA = KEY_MGMT_NONE | KEY_MGMT_IEEE8021X;

// The closer to the end, the better does the access point fit.
enum class Fit { OTHER_SECURITY, NEEDS_WPA3, NEEDS_PROTECTION, FITS };

bool fitsWithoutWpa(const NetworkSecurity& network, const AccessPointSecurity& accessPoint) {
    const bool wantsWep = network.hasWepKey || (network.keyManagement & KEY_MGMT_NONE) == 0;
    return accessPoint.protocols == 0 && accessPoint.isWep == wantsWep;
}

bool sharesProtocol(const NetworkSecurity& network, const AccessPointSecurity& accessPoint) {
    return network.protocols == 0 || (network.protocols & accessPoint.protocols) != 0;
}

Fit fitOf(const NetworkSecurity& network, const AccessPointSecurity& accessPoint) {
    if ((network.keyManagement & WITHOUT_WPA) != 0 && fitsWithoutWpa(network, accessPoint))
        return Fit::FITS;
    const unsigned int shared =
        network.keyManagement & accessPoint.keyManagement & ~static_cast<unsigned int>(WITHOUT_WPA);
    if (shared != 0 && sharesProtocol(network, accessPoint))
        return accessPoint.requiresProtection && !network.protectsFrames ? Fit::NEEDS_PROTECTION
                                                                         : Fit::FITS;
    const bool isWpa3ForPsk = (accessPoint.keyManagement & platwifi::SAE_METHODS) != 0 &&
                              (network.keyManagement & platwifi::PSK_METHODS) != 0;
    return isWpa3ForPsk ? Fit::NEEDS_WPA3 : Fit::OTHER_SECURITY;
}

// "WPA2-PSK or open"
std::string joined(const std::vector<AccessPointSecurity>& accessPoints) {
    std::vector<std::string> words;
    for (const AccessPointSecurity& one : accessPoints) {
        if (std::find(words.begin(), words.end(), one.words) == words.end())
            words.push_back(one.words);
    }
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " or ") + word;
    return text;
}

std::optional<Diagnosis> diagnosisOf(Fit fit, const std::string& network,
                                     const std::string& inRange) {
    switch (fit) {
    case Fit::OTHER_SECURITY:
        return Diagnosis{Cause::OTHER_SECURITY,
                         "the access point has the security " + inRange +
                             ", the network here has " + network,
                         ""};
    case Fit::NEEDS_WPA3:
        return Diagnosis{Cause::NEEDS_PMF_OR_WPA3,
                         "the access point requires WPA3 (" + inRange + "), the network here has " +
                             network,
                         ""};
    case Fit::NEEDS_PROTECTION:
        return Diagnosis{Cause::NEEDS_PMF_OR_WPA3,
                         "the access point requires management frame protection, which the network "
                         "here does not have",
                         "set it with platwifi set SSID pmf=required"};
    case Fit::FITS:
        break;
    }
    return std::nullopt;
}

} // namespace

std::optional<Diagnosis> judgeRange(const NetworkSecurity& network,
                                    const std::vector<AccessPointSecurity>& accessPoints) {
    if (accessPoints.empty()) {
        return Diagnosis{Cause::NOT_IN_RANGE, "",
                         network.isHidden ? "see platwifi scan: is it switched on and near enough?"
                                          : ""};
    }
    Fit best = Fit::OTHER_SECURITY;
    for (const AccessPointSecurity& one : accessPoints)
        best = std::max(best, fitOf(network, one));
    return diagnosisOf(best, network.words, joined(accessPoints));
}

} // namespace cli
