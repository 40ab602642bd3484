#include "platform/BootProgram.h"

#include <cstdlib>
#include <dlfcn.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr char BOOT_IMAGE[] = "/proc/boot/";

constexpr std::size_t BOOT_IMAGE_LENGTH = sizeof(BOOT_IMAGE) - 1;

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash);
}

std::string installedBootDirectory() {
    Dl_info library;
    if (dladdr(&BOOT_IMAGE, &library) == 0 || !library.dli_fname)
        return BOOT_IMAGE;
    return folderOf(library.dli_fname) + "/../boot/";
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
    return installedBootDirectory() + name;
}

} // namespace platform
