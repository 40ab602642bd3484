#pragma once

#include "Profile.h"
#include "model/Vocabulary.h"

// The words that the profile of this process knows.

namespace platwifi {

inline Words knownKeyManagement() noexcept {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? KEY_MANAGEMENT_WORDS : DEVICE_KEY_MANAGEMENT_WORDS;
}

inline Words knownPairwise() noexcept {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? PAIRWISE_WORDS : DEVICE_PAIRWISE_WORDS;
}

inline Words knownGroup() noexcept {
    return rule::TODAYS_SECURITY_IS_KNOWN() ? GROUP_WORDS : DEVICE_GROUP_WORDS;
}

} // namespace platwifi
