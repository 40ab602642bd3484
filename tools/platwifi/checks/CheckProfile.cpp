// The profile that this program runs under, and that its user has asked for.

#include "checks/CheckFunctions.h"
#include "checks/ProfileInUse.h"
#include "platform/Environment.h"

namespace cli {
namespace {

constexpr const char* VARIABLE = "PLATWIFI_PROFILE";
constexpr const char* OWN_PROFILE = "modern"; // without the variable, see main()

std::string profileAskedFor() {
    const char* const value = platform::environmentValue(VARIABLE);
    return value ? value : OWN_PROFILE;
}

} // namespace

// The library takes `device` for a value that names no profile.
platwifi::Profile profileInUse() {
    return profileAskedFor() == "modern" ? platwifi::Profile::MODERN : platwifi::Profile::DEVICE;
}

Finding checkProfile(const std::string&) {
    const std::string asked = profileAskedFor();
    if (asked == "modern")
        return good(asked);
    const std::string step = std::string("unset ") + VARIABLE + ", or set it to modern";
    if (asked != "device") {
        return bad(std::string(VARIABLE) + " is " + asked +
                       ", which is no profile: the rules of the profile device apply",
                   step);
    }
    return note("device: names, signals and channels follow the rules of the device",
                step + " for the rules of today's networks");
}

} // namespace cli
