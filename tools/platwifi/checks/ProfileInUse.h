#pragma once

#include "Profile.h"

namespace cli {

/// The profile of this program, as the environment chooses it. The library does not export its own answer.
platwifi::Profile profileInUse();

/// What that profile does by a rule.
template <typename Value>
Value inUse(const platwifi::ProfileRule<Value>& rule) {
    return profileInUse() == platwifi::Profile::MODERN ? rule.modern : rule.device;
}

} // namespace cli
