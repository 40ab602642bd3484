#pragma once

#include "Profile.h"

#include <string>

namespace cli {

/// The environment variable that names a profile.
constexpr const char* PROFILE_VARIABLE = "PLATWIFI_PROFILE";

/// The name of a profile that it contains, or that of this program's own profile.
std::string profileAskedFor();

/// The profile of this program, as the environment chooses it. The library does not export its own answer.
platwifi::Profile profileInUse();

/// What that profile does by a rule.
template <typename Value>
Value inUse(const platwifi::ProfileRule<Value>& rule) {
    return profileInUse() == platwifi::Profile::MODERN ? rule.modern : rule.device;
}

} // namespace cli
