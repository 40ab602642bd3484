#pragma once

#include "platform/Export.h"

#include <string>

namespace platform {

/// Where the program with this fixed path is on this system. A path outside /proc/boot/ is its own
/// answer. For a program of the boot image it is, first match:
///  1. the directory in the environment variable PLATFORM_BOOT_DIR, whatever is in it (ignored in
///     a program that runs with more rights than its caller),
///  2. the path as it stands, where it exists,
///  3. the directory boot/ beside the folder that this library was loaded from.
PLATFORM_API std::string locateProgram(const std::string& path);

} // namespace platform
