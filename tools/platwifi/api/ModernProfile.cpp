// The Java API uses the profile `modern`, whatever the environment says: see useModernProfile0().

#include "client/ProfileInUse.h"

namespace cli {

std::string profileAskedFor() {
    return "modern";
}

platwifi::Profile profileInUse() {
    return platwifi::Profile::MODERN;
}

} // namespace cli
