#include "edits/PropertyTable.h"

#include "display/Text.h"
#include "edits/PropertyRules.h"
#include "model/WifiNetwork.h"
#include "model/WifiTypes.h"
#include "values/Failure.h"

#include <functional>
#include <limits>

namespace cli {
namespace {

using N = WifiNetwork;
using Words = std::vector<Word>;

// One word at a time may be set: of several flags together nothing can be saved.
const Words KEY_MANAGEMENT = {
    {"NONE", KEY_MGMT_NONE},         {"WPA-PSK", KEY_MGMT_WPA_PSK},
    {"WPA-EAP", KEY_MGMT_WPA_EAP},   {"IEEE8021X", KEY_MGMT_IEEE8021X},
    {"WPA-NONE", KEY_MGMT_WPA_NONE},
};
const Words PROTOCOLS = {{"WPA", PROTOCOL_WPA}, {"RSN", PROTOCOL_RSN}};
const Words AUTHENTICATIONS = {
    {"OPEN", AUTH_ALG_OPEN}, {"SHARED", AUTH_ALG_SHARED}, {"LEAP", AUTH_ALG_LEAP}};
const Words EAP_METHODS = {
    {"TLS", EAP_TLS},   {"PEAP", EAP_PEAP}, {"TTLS", EAP_TTLS},         {"MD5", EAP_MD5},
    {"LEAP", EAP_LEAP}, {"GTC", EAP_GTC},   {"MSCHAPV2", EAP_MSCHAPV2}, {"OTP", EAP_OTP},
    {"PSK", EAP_PSK},   {"FAST", EAP_FAST}, {"PAX", EAP_PAX},
};
const Words MODES = {{"MANAGED", NETWORK_MODE_MANAGED}, {"ADHOC", NETWORK_MODE_ADHOC}};
const Words TRUTHS = {{"true", 1}, {"false", 0}};
const Words PAIRWISE = {{"CCMP", PAIRWISE_CCMP}, {"TKIP", PAIRWISE_TKIP}, {"NONE", PAIRWISE_NONE}};
const Words GROUP = {
    {"CCMP", GROUP_CCMP}, {"TKIP", GROUP_TKIP}, {"WEP104", GROUP_WEP104}, {"WEP40", GROUP_WEP40}};
const Words STATUSES = {
    {"enabled", NETWORK_STATUS_ENABLED},
    {"connected", NETWORK_STATUS_CONNECTED},
    {"connecting", NETWORK_STATUS_CONNECTING},
    {"disabled", NETWORK_STATUS_DISABLED},
};

// One code for both kinds of ciphers; that of both flags means pairwise CCMP and group TKIP.
const Words CIPHER_CODES = {
    {"CCMP", PAIRWISE_CCMP}, {"TKIP", PAIRWISE_TKIP},  {"CCMP+TKIP", PAIRWISE_CCMP | PAIRWISE_TKIP},
    {"WEP40", GROUP_WEP40},  {"WEP104", GROUP_WEP104}, {"NONE", PAIRWISE_NONE},
};

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
Value truth(const N& network) {
    return std::invoke(Get, network) != 0;
}

template <auto Get, const auto& All>
Value word(const N& network) {
    for (const Word& one : All) {
        if (one.number == std::invoke(Get, network))
            return one.text;
    }
    return "";
}

std::string wordsIn(unsigned int set, const Words& all) {
    std::string list;
    for (const Word& one : all) {
        if ((set & one.number) != 0)
            list += (list.empty() ? "" : " ") + std::string(one.text);
    }
    return list;
}

template <auto Get, const auto& All>
Value words(const N& network) {
    return wordsIn(std::invoke(Get, network), All);
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
    return address == Value("00:00:00:00:00:00") ? "any" : address;
}

Value ciphers(const N& network) {
    const std::string pairwise = wordsIn(network.getPairwiseCiphers(), PAIRWISE);
    const std::string group = wordsIn(network.getGroupCiphers(), GROUP);
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
    {"status", REPORTED, nullptr, word<&N::getNetworkStatus, STATUSES>, "what it is to the supplicant now", {}},
    {"strength", REPORTED, nullptr, number<&N::getStrength>, "signal at the last scan, 0 to 100", {}},
    {"channel", REPORTED, nullptr, number<&N::getChannel>, "radio channel", {}},
    {"bssid", PLAIN, takeBssid, bssid, "the one access point to use, or any", {}},
    {"ssidBroadcasted", PLAIN, takeTruth, truth<&N::getSsidBroadcasted>, "false for a hidden network", TRUTHS},
    {"mode", PLAIN, takeWord, word<&N::getNetworkMode, MODES>, "with an access point, or without", MODES},
    {"priority", PLAIN, takeNumber, number<&N::getPriority>, "the supplicant prefers higher ones", {}, 0, MOST},
    {"key_mgmt", PLAIN, takeWord, words<&N::getKeyManagement, KEY_MANAGEMENT>, "key management; NONE for open and WEP", KEY_MANAGEMENT},
    {"protocol", PLAIN, takeWord, words<&N::getProtocol, PROTOCOLS>, "RSN is WPA2", PROTOCOLS},
    {"encryption", PLAIN, takeWord, ciphers, "ciphers, pairwise and group", CIPHER_CODES},
    {"authentication", PLAIN, takeWord, word<&N::getAuthAlg, AUTHENTICATIONS>, "authentication algorithm", AUTHENTICATIONS},
    {"psk", ENCIPHERED, takePsk, secret<&N::getPsk>, "key: 8 to 63 characters, or 64 hex digits", {}},
    {"key1", HIDDEN, takeWepKey, secret<wepKey<0>>, "WEP key: 5, 13 characters or 10, 26 hex digits", {}},
    {"key2", HIDDEN, takeWepKey, secret<wepKey<1>>, "WEP key", {}},
    {"key3", HIDDEN, takeWepKey, secret<wepKey<2>>, "WEP key", {}},
    {"key4", HIDDEN, takeWepKey, secret<wepKey<3>>, "WEP key", {}},
    {"index", PLAIN, takeNumber, number<&N::getWepIndex>, "WEP key to send with, 0 for key1", {}, 0, 3},
    {"eap", PLAIN, takeWord, words<&N::getEapModes, EAP_METHODS>, "EAP method", EAP_METHODS},
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
    throw WrongUse("there is no property " + printable(name) + "; platwifi set --help lists them");
}

} // namespace cli
