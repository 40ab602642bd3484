#pragma once

#include "platform/Export.h"

#include <string>
#include <vector>

namespace platform {

/// Whether the path names a program of the boot image: one under /proc/boot/.
PLATFORM_API bool isBootProgram(const std::string& path);

/// The path at which this system has the program with this fixed path. Any path outside /proc/boot/
/// is returned as it is. For a program of the boot image, the first of these:
///  1. in the directory PLATFORM_BOOT_DIR (environment), whether or not the program is there; the
///     variable is ignored in a program that runs with more rights than its caller,
///  2. the path itself, if it exists,
///  3. in the directory boot/ beside the folder of this library (links resolved), if the program is
///     there: the build tree,
///  4. in the directory for the installed boot programs. The build knows it relative to that of the
///     libraries, so an installation may be moved as a whole while no program uses it. The path
///     itself, when the library's own file no longer existed at the first call.
/// A system that does not tell where a library is has absolute paths at 3 and 4, and 3 only in a build with tests.
PLATFORM_API std::string locateProgram(const std::string& path);

/// The paths at which locateProgram() looks for the program, at least one. It returns the last one
/// when the program is at none of them.
PLATFORM_API std::vector<std::string> programPlaces(const std::string& path);

} // namespace platform
