#include "common/BootFolders.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <link.h>

namespace platform {
namespace {

constexpr char BUILD_TREE[] = "../boot";

// The file that this code was loaded from: a library, or the program, for which the loader has no name.
std::string ownFile() {
    Dl_info symbol;
    link_map* file = nullptr;
    void** const out = reinterpret_cast<void**>(&file);
    if (dladdr1(&BUILD_TREE, &symbol, out, RTLD_DL_LINKMAP) == 0 || !file)
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

// The path of another folder, in which each "../" at the beginning goes to the parent folder, which the root has as
// well.
std::string fromFolder(std::string folder, const char* relative) {
    constexpr char PARENT[] = "../";
    for (; std::strncmp(relative, PARENT, sizeof(PARENT) - 1) == 0; relative += sizeof(PARENT) - 1)
        folder.erase(std::min(folder.rfind('/'), folder.size()));
    return folder + "/" + relative;
}

} // namespace

std::vector<std::string> bootFolders() {
    const std::string folder = ownFolder();
    if (folder.empty())
        return {};
    return {fromFolder(folder, BUILD_TREE), fromFolder(folder, BOOT_FROM_HERE)};
}

} // namespace platform
