#pragma once

#include "Profile.h"
#include "model/Vocabulary.h"

// The words that the profile of this process knows. Those of the device stand first in their tables.

namespace platwifi {

inline Words known(Words all, std::size_t ofDevice) noexcept {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? all : all.first(ofDevice);
}

inline Words knownKeyManagement() noexcept {
    return known(KEY_MANAGEMENT_WORDS, 5);
}

inline Words knownPairwise() noexcept {
    return known(PAIRWISE_WORDS, 3);
}

inline Words knownGroup() noexcept {
    return known(GROUP_WORDS, 4);
}

} // namespace platwifi
