#include "common/BootFolders.h"

namespace platform {

// POSIX does not tell from which file a library was loaded, so the paths are those of the build. That of the build
// tree is for its tests alone: in an installed library it would name a folder of another machine.
std::vector<std::string> bootFolders() {
#ifdef BUILT_BOOT_DIR
    return {BUILT_BOOT_DIR, INSTALLED_BOOT_DIR};
#else
    return {INSTALLED_BOOT_DIR};
#endif
}

} // namespace platform
