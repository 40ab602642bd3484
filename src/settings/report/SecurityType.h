#pragma once

class WifiNetwork;

namespace platwifi {

/// Groups of attributes of a security configuration (a set).
enum ConfigurationAttributes : unsigned int {
    COMMON_ATTRIBUTES = 0x1,
    KEY_MGMT_ATTRIBUTE = 0x2,
    WEP_ATTRIBUTES = 0x4,
    PSK_ATTRIBUTE = 0x8,
    EAP_ATTRIBUTES = 0x10,
    PMF_ATTRIBUTE = 0x20,
};

/// A type of security that a network can be configured with.
struct SecurityType {
    const char* name;
    bool (*applies)(const WifiNetwork&);
    unsigned int protocols;  ///< the set of Protocol that the network must have; 0: any
    unsigned int attributes; ///< a set of ConfigurationAttributes; 0: nothing to configure
};

/// The security type that follows from the network's protocols, key management, ciphers and key; null for
/// none. Sets are compared as a whole: a network with one more method of key management than a type allows
/// does not have that type. Under the profile `modern` there are more types, which allow several methods. The
/// result is a constant of the program.
const SecurityType* securityTypeOf(const WifiNetwork& network) noexcept;

} // namespace platwifi
