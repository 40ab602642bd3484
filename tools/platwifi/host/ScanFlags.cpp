#include "host/ScanFlags.h"

#include "model/WifiTypes.h"
#include "values/Texts.h"

#include <vector>

namespace cli {
namespace {

constexpr unsigned int UNKNOWN_METHOD = 0;

// What the client prints for a kind of key management. A longer word stands before one that it begins with.
struct Method {
    const char* word;
    unsigned int keyManagement;
};

constexpr Method METHODS[] = {
    {"PSK-SHA256", KEY_MGMT_WPA_PSK_SHA256},
    {"PSK", KEY_MGMT_WPA_PSK},
    {"FT/PSK", KEY_MGMT_FT_PSK},
    {"SAE-EXT-KEY", UNKNOWN_METHOD},
    {"SAE", KEY_MGMT_SAE},
    {"FT/SAE", KEY_MGMT_FT_SAE},
    {"EAP-SUITE-B-192", KEY_MGMT_SUITE_B_192},
    {"EAP-SUITE-B", UNKNOWN_METHOD},
    {"EAP-SHA256", KEY_MGMT_WPA_EAP_SHA256},
    {"EAP", KEY_MGMT_WPA_EAP},
    {"FT/EAP", KEY_MGMT_FT_EAP},
    {"OWE", KEY_MGMT_OWE},
};

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char character : text) {
        if (character == separator)
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

// The method at the beginning of a word such as "PSK-CCMP": ciphers follow behind a hyphen.
unsigned int methodOf(const std::string& word) {
    for (const Method& method : METHODS) {
        const std::string name = method.word;
        if (word == name || beginsWith(word, name + '-'))
            return method.keyManagement;
    }
    return UNKNOWN_METHOD;
}

// Those in a text such as "PSK+SAE-CCMP+TKIP".
unsigned int methodsOf(const std::string& text) {
    unsigned int methods = 0;
    for (const std::string& word : split(text, '+'))
        methods |= methodOf(word);
    return methods;
}

// If the flag begins with this protocol, adds its methods.
bool readProtocol(const std::string& flag, const std::string& protocol, unsigned int& methods) {
    if (!beginsWith(flag, protocol))
        return false;
    methods |= methodsOf(flag.substr(protocol.size()));
    return true;
}

} // namespace

ScanFlags ScanFlags::of(const std::string& flags) {
    ScanFlags offered;
    for (const std::string& piece : split(flags, '[')) {
        const std::string flag = piece.substr(0, piece.find(']'));
        for (const char* const protocol : {"WPA2-", "RSN-"})
            offered.hasRsn = readProtocol(flag, protocol, offered.rsn) || offered.hasRsn;
        offered.hasWpa = readProtocol(flag, "WPA-", offered.wpa) || offered.hasWpa;
        offered.isWep = offered.isWep || flag == "WEP";
        offered.hasOweBeside = offered.hasOweBeside || flag == "OWE-TRANS-OPEN";
    }
    return offered;
}

} // namespace cli
