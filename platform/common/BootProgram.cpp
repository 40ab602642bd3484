#include "platform/BootProgram.h"

#include "common/BootFolders.h"
#include "platform/Environment.h"

#include <algorithm>
#include <unistd.h>

namespace platform {
namespace {

constexpr char BOOT_IMAGE[] = "/proc/boot/";

constexpr std::size_t BOOT_IMAGE_LENGTH = sizeof(BOOT_IMAGE) - 1;

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
    if (const char* directory = environmentValue("PLATFORM_BOOT_DIR"))
        return {std::string(directory) + "/" + name};
    std::vector<std::string> places{path};
    for (std::string& folder : bootFolders())
        places.push_back(folder.append("/").append(name));
    return places;
}

// Looks for the program, not for its folder: beside an installed library "../boot" may be a folder
// of the system.
std::string locateProgram(const std::string& path) {
    const std::vector<std::string> places = programPlaces(path);
    return *std::find_if(places.begin(), places.end() - 1, exists);
}

} // namespace platform
