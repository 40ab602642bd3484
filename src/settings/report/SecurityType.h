#pragma once

class WifiNetwork;

namespace platwifi {

/// The attributes of a security configuration that belong together (a set).
enum ConfigurationAttributes : unsigned int {
    COMMON_ATTRIBUTES = 0x1,
    KEY_MGMT_ATTRIBUTE = 0x2,
    WEP_ATTRIBUTES = 0x4,
    PSK_ATTRIBUTE = 0x8,
    EAP_ATTRIBUTES = 0x10,
};

/// A kind of security that a network can be configured with.
struct SecurityType {
    const char* name;
    bool (*applies)(const WifiNetwork&);
    unsigned int protocols;  ///< exactly these
    unsigned int attributes; ///< a set of ConfigurationAttributes; 0: nothing to configure
};

/// The one type that the network's protocols, key management, ciphers and key amount to, or null.
/// Sets are compared as a whole: one method of key management more than a type has, and the network
/// has no type. The type lives as long as the program.
const SecurityType* securityTypeOf(const WifiNetwork& network) noexcept;

} // namespace platwifi
