// The profile that this program runs under, and that its user has asked for.

#include "checks/CheckFunctions.h"
#include "client/ProfileInUse.h"

namespace cli {

Finding checkProfile(const std::string&) {
    const std::string asked = profileAskedFor();
    if (asked == "modern")
        return good(asked);
    const std::string step = std::string("unset ") + PROFILE_VARIABLE + ", or set it to modern";
    if (asked != "device") {
        return bad(std::string(PROFILE_VARIABLE) + " is " + asked +
                       ", which is no profile: the rules of the profile device apply",
                   step);
    }
    return note("device: names, signals and channels follow the rules of the device",
                step + " for the rules of today's networks");
}

} // namespace cli
