#include "platform/Environment.h"

#include <cstdlib>
#include <unistd.h>

namespace platform {
namespace {

bool idsDiffer() noexcept {
    return getuid() != geteuid() || getgid() != getegid();
}

// Found out when the library is loaded: later, such a program may have given its rights back for a while.
const bool HAS_MORE_RIGHTS = idsDiffer();

} // namespace

const char* environmentValue(const char* name) noexcept {
    return HAS_MORE_RIGHTS || idsDiffer() ? nullptr : std::getenv(name);
}

} // namespace platform
