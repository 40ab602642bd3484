#pragma once

#include <optional>
#include <string>
#include <vector>

namespace cli {

/// What a network needs to know of its user.
enum class Credentials {
    NONE,
    KEY,     ///< the property psk
    WEP_KEY, ///< the property key1
    LOGIN    ///< an EAP method, and what it needs
};

/// How to join a network.
struct Security {
    std::string name;                    ///< in words, such as "WPA3-SAE"
    std::vector<std::string> properties; ///< of the network, "NAME=VALUE" each
    Credentials credentials = Credentials::NONE;
};

/// The names of all kinds of security, the best first.
std::vector<std::string> securityNames();

/// All kinds of key management: for a supplicant that can do all of them.
constexpr unsigned int ALL_METHODS = ~0U;

/// The best security that the access points of an SSID offer. An access point with a worse one, which another
/// device may have set up under the same name, does not change the result.
/// @param flags    of each access point with this SSID, as the client prints them
/// @param capable  the kinds of key management that the supplicant and the radio can do, a set
/// @param given    what the user has given: only security that needs this is considered, if there is any
/// @return nothing if there is no access point, or none that the supplicant can connect to
std::optional<Security> bestSecurity(const std::vector<std::string>& flags, unsigned int capable,
                                     std::optional<Credentials> given = std::nullopt);

/// What a network with a key management needs.
/// @param keyManagement  a set of KeyManagement
Credentials credentialsFor(unsigned int keyManagement);

} // namespace cli
