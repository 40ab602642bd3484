#include "connection/NetworkSecurity.h"

#include "host/ScanFlags.h"
#include "host/ScanResult.h"
#include "model/Vocabulary.h"
#include "model/WifiNetwork.h"

#include <cstdlib>
#include <vector>

namespace cli {
namespace {

constexpr unsigned int WEP_KEYS = 4;

// Without WPA the key management is NONE for an open network and for WEP.
std::string wordsOf(const NetworkSecurity& security) {
    if (security.keyManagement == KEY_MGMT_NONE)
        return security.hasWepKey ? "WEP" : "open";
    return platwifi::wordsIn(security.keyManagement, platwifi::KEY_MANAGEMENT_WORDS);
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
constexpr unsigned int REQUIRES_PROTECTION = 0x40; // in the RSN capabilities

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
    const ScanFlags offered = ScanFlags::of(flags);
    AccessPointSecurity security;
    security.protocols =
        (offered.hasRsn ? PROTOCOL_RSN : 0U) | (offered.hasWpa ? PROTOCOL_WPA : 0U);
    security.keyManagement = security.protocols == 0 ? KEY_MGMT_NONE : offered.rsn | offered.wpa;
    security.isWep = offered.isWep;
    security.words = securityOf(flags);
    return security;
}

bool requiresProtection(const std::string& elements) {
    const Bytes bytes(elements);
    for (std::size_t place = 0; place + HEAD <= bytes.size(); place += HEAD + bytes.at(place + 1)) {
        if (bytes.at(place) == RSN_ELEMENT)
            return (rsnCapabilities(bytes, place) & REQUIRES_PROTECTION) != 0;
    }
    return false;
}

} // namespace cli
