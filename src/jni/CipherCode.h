#pragma once

#include <optional>

namespace platwifi {

/// What one number that names both kinds of ciphers stands for: a set of PairwiseCipher and a set of
/// GroupCipher. One without value is left as it is.
struct CipherSets {
    std::optional<unsigned int> pairwise;
    std::optional<unsigned int> group;
};

/// A cipher that only one kind has sets that kind alone; TKIP and CCMP together are TKIP for the
/// group and CCMP for each station; any other number sets both.
CipherSets cipherSetsOf(unsigned int code);

} // namespace platwifi
