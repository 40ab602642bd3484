#include "platform/BootProgram.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
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
std::string foundFolder() {
    std::error_code error;
    return std::filesystem::canonical(ownFile(), error).parent_path();
}

// A copy of a text that fits. It has no memory of its own to free: other threads may use it while the program ends.
struct ShortText {
    explicit ShortText(const std::string& text) : fits(text.size() < sizeof(bytes)) {
        std::snprintf(bytes, sizeof(bytes), "%s", text.c_str());
    }

    bool fits;
    char bytes[256];
};

// Kept, because resolving links takes longer than all else that is done before a program starts.
std::string ownFolder() {
    static const ShortText folder(foundFolder());
    return folder.fits ? folder.bytes : foundFolder();
}

// The path from a folder to a program, in which each "../" at the beginning goes to the parent folder, which the root
// has as well.
std::string inFolder(std::string folder, const char* relative, const std::string& name) {
    constexpr char PARENT[] = "../";
    for (; std::strncmp(relative, PARENT, sizeof(PARENT) - 1) == 0; relative += sizeof(PARENT) - 1)
        folder.erase(std::min(folder.rfind('/'), folder.size()));
    return folder + "/" + relative + "/" + name;
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
    const std::string folder = ownFolder();
    if (folder.empty())
        return {path};
    return {path, inFolder(folder, "../boot", name), inFolder(folder, INSTALLED_BOOT_DIR, name)};
}

// Looks for the program, not for its folder: beside an installed library "../boot" may be a folder
// of the system.
std::string locateProgram(const std::string& path) {
    const std::vector<std::string> places = programPlaces(path);
    return *std::find_if(places.begin(), places.end() - 1, exists);
}

} // namespace platform
