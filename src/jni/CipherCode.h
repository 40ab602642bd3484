#pragma once

#include <optional>

namespace platwifi {

/// The meaning of one number for both kinds of ciphers: a set of PairwiseCipher and a set of
/// GroupCipher. One without a value does not change.
struct CipherSets {
    std::optional<unsigned int> pairwise;
    std::optional<unsigned int> group;
};

/// A cipher that exists for one kind only sets that kind. TKIP and CCMP together mean TKIP for the group and
/// CCMP for each station; any other number sets both kinds. Where the profile writes sets whole, each kind gets
/// all ciphers of the code that it has.
CipherSets cipherSetsOf(unsigned int code);

} // namespace platwifi
