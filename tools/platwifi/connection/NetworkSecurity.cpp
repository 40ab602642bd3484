#include "connection/NetworkSecurity.h"

#include "host/ScanResult.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace cli {
namespace {

using platwifi::Word;

constexpr unsigned int WEP_KEYS = 4;

// How the client prints key management in the flags of a scan.
constexpr Word FLAG_WORDS[] = {
    {KEY_MGMT_WPA_PSK, "PSK"},
    {KEY_MGMT_WPA_EAP, "EAP"},
    {KEY_MGMT_SAE, "SAE"},
    {KEY_MGMT_OWE, "OWE"},
    {KEY_MGMT_WPA_PSK_SHA256, "PSK-SHA256"},
    {KEY_MGMT_WPA_EAP_SHA256, "EAP-SHA256"},
    {KEY_MGMT_FT_PSK, "FT/PSK"},
    {KEY_MGMT_FT_EAP, "FT/EAP"},
    {KEY_MGMT_FT_SAE, "FT/SAE"},
    {KEY_MGMT_SUITE_B_192, "EAP-SUITE-B-192"},
};

constexpr Word PROTOCOL_BEGINNINGS[] = {
    {PROTOCOL_WPA, "WPA-"},
    {PROTOCOL_RSN, "WPA2-"},
    {PROTOCOL_RSN, "RSN-"},
};

// Whether a word stands at that place: a cipher follows it behind a hyphen, another word behind a plus sign.
// "PSK" is also the beginning of "PSK-SHA256".
bool endsWord(const std::string& text, std::size_t place) {
    const std::string rest = text.substr(place);
    return rest.empty() || rest[0] == '+' ||
           (rest[0] == '-' && rest.rfind("-SHA", 0) != 0 && rest.rfind("-SUITE", 0) != 0);
}

// The words of key management at the beginning of a text such as "PSK+SAE-CCMP".
unsigned int keyManagementIn(const std::string& text) {
    unsigned int set = 0;
    for (std::size_t start = 0; start != std::string::npos;) {
        for (const Word& word : FLAG_WORDS) {
            const std::string name = word.text;
            if (text.compare(start, name.size(), name) == 0 && endsWord(text, start + name.size()))
                set |= word.number;
        }
        const std::size_t plus = text.find('+', start);
        start = plus == std::string::npos ? plus : plus + 1;
    }
    return set;
}

void readFlag(const std::string& flag, AccessPointSecurity& security) {
    security.isWep = security.isWep || flag == "WEP";
    for (const Word& protocol : PROTOCOL_BEGINNINGS) {
        const std::string beginning = protocol.text;
        if (flag.rfind(beginning, 0) != 0)
            continue;
        security.protocols |= protocol.number;
        security.keyManagement |= keyManagementIn(flag.substr(beginning.size()));
    }
}

// Without WPA the key management is NONE for an open network and for WEP.
std::string wordsOf(const NetworkSecurity& security) {
    if (security.keyManagement == KEY_MGMT_NONE)
        return security.hasWepKey ? "WEP" : "open";
    std::string words;
    for (const Word& word : platwifi::KEY_MANAGEMENT_WORDS) {
        if ((security.keyManagement & word.number) != 0)
            words += (words.empty() ? "" : " ") + std::string(word.text);
    }
    return words;
}

/// Reads the elements of a beacon, byte by byte. Behind the end there are zeros.
class Bytes {
public:
    explicit Bytes(const std::string& hex) {
        for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
            m_bytes.push_back(
                static_cast<unsigned char>(std::strtoul(hex.substr(i, 2).c_str(), nullptr, 16)));
    }
    std::size_t size() const { return m_bytes.size(); }
    unsigned int at(std::size_t place) const { return place < size() ? m_bytes[place] : 0U; }
    unsigned int pairAt(std::size_t place) const { return at(place) | at(place + 1) << 8U; }

private:
    std::vector<unsigned char> m_bytes;
};

// IEEE 802.11, RSN element.
constexpr unsigned int RSN_ELEMENT = 48;
constexpr std::size_t HEAD = 2;                    // id and length
constexpr std::size_t SUITE = 4;                   // a cipher or an AKM
constexpr std::size_t BEFORE_PAIRWISE = 6;         // version and group cipher
constexpr unsigned int PROTECTION_REQUIRED = 0x40; // in the RSN capabilities

unsigned int rsnCapabilities(const Bytes& bytes, std::size_t element) {
    const std::size_t pairwise = element + HEAD + BEFORE_PAIRWISE;
    const std::size_t akm = pairwise + 2 + SUITE * bytes.pairAt(pairwise);
    const std::size_t capabilities = akm + 2 + SUITE * bytes.pairAt(akm);
    const std::size_t end = element + HEAD + bytes.at(element + 1);
    return capabilities + 2 <= end ? bytes.pairAt(capabilities) : 0;
}

} // namespace

NetworkSecurity NetworkSecurity::of(const WifiNetwork& network) {
    NetworkSecurity security;
    security.keyManagement = network.getKeyManagement();
    security.protocols = network.getProtocol();
    for (unsigned int slot = 0; slot < WEP_KEYS; ++slot)
        security.hasWepKey = security.hasWepKey || network.getWepKey(slot) != nullptr;
    const unsigned int pmf = network.getPmf();
    security.protectsFrames = pmf == PMF_OPTIONAL || pmf == PMF_REQUIRED;
    security.isHidden = network.getSsidBroadcasted() == 0;
    security.words = wordsOf(security);
    return security;
}

AccessPointSecurity AccessPointSecurity::of(const std::string& flags) {
    AccessPointSecurity security;
    std::size_t end = 0;
    for (std::size_t start = flags.find('['); start != std::string::npos;
         start = flags.find('[', end)) {
        end = std::min(flags.find(']', start), flags.size());
        readFlag(flags.substr(start + 1, end - start - 1), security);
    }
    if (security.protocols == 0)
        security.keyManagement = KEY_MGMT_NONE;
    security.words = securityOf(flags);
    return security;
}

bool requiresProtection(const std::string& elements) {
    const Bytes bytes(elements);
    for (std::size_t place = 0; place + HEAD <= bytes.size(); place += HEAD + bytes.at(place + 1)) {
        if (bytes.at(place) == RSN_ELEMENT)
            return (rsnCapabilities(bytes, place) & PROTECTION_REQUIRED) != 0;
    }
    return false;
}

} // namespace cli
