#pragma once

#include "platform/Export.h"

#include <string>
#include <vector>

namespace platform {

/// Whether the path names a program of the boot image: one under /proc/boot/.
PLATFORM_API bool isBootProgram(const std::string& path);

/// Where the program with this fixed path is on this system. A path outside /proc/boot/ is its own
/// answer. For a program of the boot image it is, first match:
///  1. the directory in the environment variable PLATFORM_BOOT_DIR, whatever is in it (ignored in
///     a program that runs with more rights than its caller),
///  2. the path as it stands, where it exists,
///  3. the directory boot/ beside the folder that this library is in, links to it resolved, where
///     the program is there: the build tree,
///  4. the directory that the boot programs are installed in, which the build knows as a path from
///     that of the libraries: so a whole installation may be moved. The path as it stands again
///     where the library's own file is gone.
PLATFORM_API std::string locateProgram(const std::string& path);

/// The places where locateProgram() looks for the program, at least one; where none has it, the last is
/// its answer.
PLATFORM_API std::vector<std::string> programPlaces(const std::string& path);

} // namespace platform
