#include "platform/BootProgram.h"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <link.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr char BOOT_IMAGE[] = "/proc/boot/";

constexpr std::size_t BOOT_IMAGE_LENGTH = sizeof(BOOT_IMAGE) - 1;

// The file that this code was loaded from: a library, or the program, for which the loader has no name.
std::string ownFile() {
    Dl_info symbol;
    link_map* file = nullptr;
    void** const out = reinterpret_cast<void**>(&file);
    if (dladdr1(&BOOT_IMAGE, &symbol, out, RTLD_DL_LINKMAP) == 0 || !file)
        return "";
    return file->l_name[0] != '\0' ? file->l_name : "/proc/self/exe";
}

// The folder of that file with links resolved. Empty when the file no longer exists.
std::string ownFolder() {
    std::error_code error;
    return std::filesystem::canonical(ownFile(), error).parent_path();
}

std::string normal(const std::string& folder) {
    return std::filesystem::path(folder).lexically_normal();
}

// The boot directories that were built or installed with this code. Found once: resolving links takes longer
// than all else that is done before a program starts. Never destroyed: other threads may run while the program ends.
const std::vector<std::string>& ownBootFolders() {
    static const auto* const folders = [] {
        const std::string folder = ownFolder();
        return folder.empty() ? new std::vector<std::string>
                              : new std::vector{normal(folder + "/../boot/"),
                                                normal(folder + "/" INSTALLED_BOOT_DIR "/")};
    }();
    return *folders;
}

bool exists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

} // namespace

bool isBootProgram(const std::string& path) {
    return path.compare(0, BOOT_IMAGE_LENGTH, BOOT_IMAGE) == 0;
}

std::vector<std::string> programPlaces(const std::string& path) {
    if (!isBootProgram(path))
        return {path};
    const std::string name = path.substr(BOOT_IMAGE_LENGTH);
    if (const char* directory = secure_getenv("PLATFORM_BOOT_DIR"))
        return {std::string(directory) + "/" + name};
    std::vector<std::string> places = {path};
    for (const std::string& folder : ownBootFolders())
        places.push_back(folder + name);
    return places;
}

// Looks for the program, not for its folder: beside an installed library "../boot" may be a folder
// of the system.
std::string locateProgram(const std::string& path) {
    const std::vector<std::string> places = programPlaces(path);
    return *std::find_if(places.begin(), places.end() - 1, exists);
}

} // namespace platform
