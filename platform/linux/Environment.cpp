#include "platform/Environment.h"

#include <cstdlib>

namespace platform {

const char* environmentValue(const char* name) noexcept {
    return secure_getenv(name);
}

} // namespace platform
