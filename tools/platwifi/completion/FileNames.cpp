#include "completion/FileNames.h"

#include "display/Text.h"

#include <algorithm>
#include <filesystem>

namespace cli {
namespace {

bool fits(const std::string& name, const std::string& beginning) {
    const bool isWanted = name.compare(0, beginning.size(), beginning) == 0;
    const bool isHidden = name[0] == '.' && beginning.empty();
    return isWanted && !isHidden && printable(name) == name;
}

} // namespace

std::vector<std::string> filesThatBeginWith(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    const std::string beginning = path.substr(folder.size());
    std::vector<std::string> files;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        const std::string name = entry->path().filename();
        if (fits(name, beginning))
            files.push_back(folder + name + (entry->is_directory(unknown) ? "/" : ""));
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace cli
