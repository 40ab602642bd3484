#include "edits/PropertyTable.h"

#include "display/Text.h"
#include "edits/PropertyRules.h"
#include "model/NetworkFunctions.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"
#include "values/Failure.h"
#include "values/Nearest.h"

#include <functional>
#include <limits>

namespace cli {
namespace {

using namespace platwifi;
using N = WifiNetwork;

// clang-format off

constexpr Word BOOLEANS[] = {
    {1, "true"},
    {0, "false"},
};

constexpr Word STATUS_WORDS[] = {
    {NETWORK_STATUS_ENABLED, "enabled"},
    {NETWORK_STATUS_CONNECTED, "connected"},
    {NETWORK_STATUS_CONNECTING, "connecting"},
    {NETWORK_STATUS_DISABLED, "disabled"},
};

// Of one group or the other, or of both.
constexpr Word CIPHER_WORDS[] = {
    rowOf(PAIRWISE_WORDS, PAIRWISE_CCMP),
    rowOf(PAIRWISE_WORDS, PAIRWISE_TKIP),
    rowOf(PAIRWISE_WORDS, PAIRWISE_GCMP),
    rowOf(PAIRWISE_WORDS, PAIRWISE_GCMP_256),
    rowOf(PAIRWISE_WORDS, PAIRWISE_CCMP_256),
    rowOf(GROUP_WORDS, GROUP_WEP40),
    rowOf(GROUP_WORDS, GROUP_WEP104),
    rowOf(PAIRWISE_WORDS, PAIRWISE_NONE),
};

// clang-format on

// How a value is read. `Get` is a getter of WifiNetwork, or a function that takes a network.

template <auto Get>
Value text(const N& network) {
    const char* const value = std::invoke(Get, network);
    return value ? printable(value) : "";
}

template <auto Get>
Value number(const N& network) {
    return static_cast<int>(std::invoke(Get, network));
}

template <auto Get>
Value boolean(const N& network) {
    return std::invoke(Get, network) != 0;
}

template <auto Get, const auto& Table>
Value word(const N& network) {
    return textFor(Table, std::invoke(Get, network), "");
}

template <auto Get, const auto& Table>
Value words(const N& network) {
    return wordsIn(std::invoke(Get, network), Table);
}

template <auto Get>
Value secret(const N& network) {
    const char* const value = std::invoke(Get, network);
    return value && value[0] != '\0';
}

template <unsigned int Slot>
const char* wepKey(const N& network) {
    return network.getWepKey(Slot);
}

// The address of all zeros stands for any access point.
Value bssid(const N& network) {
    const Value address = text<&N::getBssid>(network);
    return address == Value(NO_BSSID) ? "any" : address;
}

Value ciphers(const N& network) {
    const std::string pairwise = wordsIn(network.getPairwiseCiphers(), PAIRWISE_WORDS);
    const std::string group = wordsIn(network.getGroupCiphers(), GROUP_WORDS);
    return pairwise == group ? pairwise : pairwise + " / group " + group;
}

constexpr long MOST = std::numeric_limits<int>::max();

constexpr auto PLAIN = Entry::PLAIN;
constexpr auto HIDDEN = Entry::HIDDEN;
constexpr auto ENCIPHERED = Entry::ENCIPHERED;
constexpr auto REPORTED = Entry::REPORTED;

// clang-format off
const std::vector<Property> PROPERTIES = {
    {"ssid", REPORTED, nullptr, text<&N::getSsid>, "the network's name", {}},
    {"status", REPORTED, nullptr, word<&N::getNetworkStatus, STATUS_WORDS>, "what it is to the supplicant now", {}},
    {"strength", REPORTED, nullptr, number<&N::getStrength>, "signal at the last scan, 0 to 100", {}},
    {"channel", REPORTED, nullptr, number<&N::getChannel>, "radio channel", {}},
    {"bssid", PLAIN, takeBssid, bssid, "the one access point to use, or any", {}},
    {"ssidBroadcasted", PLAIN, takeBoolean, boolean<&N::getSsidBroadcasted>, "false for a hidden network", BOOLEANS},
    {"mode", PLAIN, takeWord, word<&N::getNetworkMode, MODE_WORDS>, "with an access point, or without", MODE_WORDS},
    {"priority", PLAIN, takeNumber, number<&N::getPriority>, "the supplicant prefers higher ones", {}, 0, MOST},
    {"key_mgmt", PLAIN, takeWords, words<&N::getKeyManagement, KEY_MANAGEMENT_WORDS>, "key management; NONE for open and WEP", KEY_MANAGEMENT_WORDS},
    {"protocol", PLAIN, takeWords, words<&N::getProtocol, PROTOCOL_WORDS>, "RSN is WPA2", PROTOCOL_WORDS},
    {"encryption", PLAIN, takeWords, ciphers, "ciphers, pairwise and group", CIPHER_WORDS},
    {"pmf", PLAIN, takeWord, word<&N::getPmf, PMF_WORDS>, "protection of management frames", PMF_WORDS},
    {"authentication", PLAIN, takeWord, word<&N::getAuthAlg, AUTH_ALG_WORDS>, "authentication algorithm", AUTH_ALG_WORDS},
    {"psk", ENCIPHERED, takePsk, secret<&N::getPsk>, "key: 8 to 63 characters; any length for SAE", {}},
    {"key1", HIDDEN, takeWepKey, secret<wepKey<0>>, "WEP key: 5, 13 characters or 10, 26 hex digits", {}},
    {"key2", HIDDEN, takeWepKey, secret<wepKey<1>>, "WEP key", {}},
    {"key3", HIDDEN, takeWepKey, secret<wepKey<2>>, "WEP key", {}},
    {"key4", HIDDEN, takeWepKey, secret<wepKey<3>>, "WEP key", {}},
    {"index", PLAIN, takeNumber, number<&N::getWepIndex>, "WEP key to send with, 0 for key1", {}, 0, 3},
    {"eap", PLAIN, takeWords, words<&N::getEapModes, EAP_WORDS>, "EAP method", EAP_WORDS},
    {"eapIdentity", PLAIN, takeText, text<&N::getEAPIdentity>, "EAP identity", {}},
    {"eapAnonymousIdentity", PLAIN, takeText, text<&N::getEAPAnonymousIdentity>, "identity outside of the tunnel", {}},
    {"eapPassword", ENCIPHERED, takeText, secret<&N::getEAPPassword>, "EAP password", {}},
    {"phase1", PLAIN, takeText, text<&N::getPhase1Step>, "parameters of the outer authentication", {}},
    {"phase2", PLAIN, takeText, text<&N::getPhase2Step>, "parameters of the inner one, such as auth=MSCHAPV2", {}},
    {"CACertificateFile", PLAIN, takePath, text<&N::getCACertificate>, "certificate of the authority", {}},
    {"CACertificateDir", PLAIN, takePath, text<&N::getCACertificateDir>, "folder with certificates of authorities", {}},
    {"clientCertificate", PLAIN, takePath, text<&N::getClientCertificate>, "certificate of this device", {}},
    {"privateKeyFile", PLAIN, takePath, text<&N::getPrivateKeyFile>, "its private key", {}},
    {"privateKeyPassword", ENCIPHERED, takeText, secret<&N::getPrivateKeyPassword>, "password of that file", {}},
    {"CACertificateFile2", PLAIN, takePath, text<&N::getCACertificate2>, "the same for the inner authentication", {}},
    {"CACertificateDir2", PLAIN, takePath, text<&N::getCACertificateDir2>, "", {}},
    {"clientCertificate2", PLAIN, takePath, text<&N::getClientCertificate2>, "", {}},
    {"privateKeyFile2", PLAIN, takePath, text<&N::getPrivateKeyFile2>, "", {}},
    {"privateKeyPassword2", ENCIPHERED, takeText, secret<&N::getPrivateKeyPassword2>, "", {}},
};
// clang-format on

std::vector<std::string> namesThatCanBeSet() {
    std::vector<std::string> names;
    for (const Property& property : PROPERTIES) {
        if (property.entry != REPORTED)
            names.emplace_back(property.name);
    }
    return names;
}

} // namespace

std::string shown(const Property& property, const WifiNetwork& network) {
    const Value value = property.read(network);
    if (const bool* const is = std::get_if<bool>(&value)) {
        if (isSecret(property))
            return *is ? "(set)" : "";
        return *is ? "true" : "false";
    }
    if (const int* const number = std::get_if<int>(&value))
        return std::to_string(*number);
    return std::get<std::string>(value);
}

const std::vector<Property>& properties() {
    return PROPERTIES;
}

const Property& propertyOf(const std::string& name) {
    for (const Property& property : PROPERTIES) {
        if (property.name == name)
            return property;
    }
    const std::vector<std::string> known = namesThatCanBeSet();
    throw WrongUse("there is no property " + (name.empty() ? "''" : printable(name)) +
                   didYouMean(name, known) + "; the properties are " + listOf(known) +
                   "; platwifi set --help explains them");
}

} // namespace cli
