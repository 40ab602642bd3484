#include "client/ProfileInUse.h"

#include "platform/Environment.h"

namespace cli {
namespace {

constexpr const char* OWN_PROFILE = "modern"; // without the variable, see main()

} // namespace

std::string profileAskedFor() {
    const char* const value = platform::environmentValue(PROFILE_VARIABLE);
    return value ? value : OWN_PROFILE;
}

// The library takes `device` for a value that names no profile.
platwifi::Profile profileInUse() {
    return profileAskedFor() == "modern" ? platwifi::Profile::MODERN : platwifi::Profile::DEVICE;
}

} // namespace cli
