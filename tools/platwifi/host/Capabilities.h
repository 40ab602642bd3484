#pragma once

#include <string>

namespace cli {

/// The kinds of key management that the supplicant and the radio can do.
/// @return a set; all of them if the supplicant does not list any
unsigned int capableMethods(const std::string& iface);

/// Checks that the supplicant and the radio can do what a network shall use. A word of the first years of WPA is
/// not checked.
/// @param keyManagement  a set of KeyManagement
/// @param ciphers        a set of PairwiseCipher
/// @throws Failure that names what they cannot do
void requireCapabilities(const std::string& iface, unsigned int keyManagement,
                         unsigned int ciphers);

} // namespace cli
