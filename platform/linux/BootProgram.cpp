#include "platform/BootProgram.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <unistd.h>

namespace platform {
namespace {

constexpr char BOOT_IMAGE[] = "/proc/boot/";

constexpr std::size_t BOOT_IMAGE_LENGTH = sizeof(BOOT_IMAGE) - 1;

// The folder that this library really is in, as a link to it may stand anywhere; empty where its file
// is gone.
std::string libraryFolder() {
    Dl_info library;
    if (dladdr(&BOOT_IMAGE, &library) == 0 || !library.dli_fname)
        return "";
    std::error_code error;
    return std::filesystem::canonical(library.dli_fname, error).parent_path();
}

// Looks for the program itself: beside an installed library "../boot" may be a folder of the system.
std::string besideLibrary(const std::string& name) {
    const std::string folder = libraryFolder();
    if (folder.empty())
        return BOOT_IMAGE + name;
    const std::string built = folder + "/../boot/" + name;
    return access(built.c_str(), F_OK) == 0 ? built : folder + "/" INSTALLED_BOOT_DIR "/" + name;
}

} // namespace

std::string locateProgram(const std::string& path) {
    if (path.compare(0, BOOT_IMAGE_LENGTH, BOOT_IMAGE) != 0)
        return path;
    const std::string name = path.substr(BOOT_IMAGE_LENGTH);
    if (const char* directory = secure_getenv("PLATFORM_BOOT_DIR"))
        return std::string(directory) + "/" + name;
    if (access(path.c_str(), F_OK) == 0)
        return path;
    return besideLibrary(name);
}

} // namespace platform
