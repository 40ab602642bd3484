#pragma once

#include "platform/Export.h"

namespace platform {

/// The value of an environment variable, valid until the environment changes. Null when it is not set, and in
/// a program that runs with more rights than its caller: a variable must not choose what such a program does.
PLATFORM_API const char* environmentValue(const char* name) noexcept;

} // namespace platform
