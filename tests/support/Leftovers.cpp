#include "support/Leftovers.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;

namespace test {
namespace {

std::size_t entriesOf(const char* folder) {
    const auto count = std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    return static_cast<std::size_t>(count);
}

std::size_t childrenOf(const fs::path& thread) {
    std::ifstream file(thread / "children");
    return static_cast<std::size_t>(std::distance(std::istream_iterator<int>(file), {}));
}

std::size_t ownChildren() {
    std::size_t count = 0;
    for (const auto& thread : fs::directory_iterator("/proc/self/task"))
        count += childrenOf(thread.path());
    return count;
}

} // namespace

std::vector<std::string> resultFiles() {
    std::vector<std::string> files;
    for (const auto& entry : fs::directory_iterator("/tmp")) {
        const std::string path = entry.path();
        if (path.find("_result_") != std::string::npos)
            files.push_back(path);
    }
    std::sort(files.begin(), files.end());
    return files;
}

Leftovers Leftovers::now() {
    return {entriesOf("/proc/self/fd"), ownChildren(), resultFiles()};
}

bool Leftovers::operator==(const Leftovers& other) const {
    return descriptors == other.descriptors && children == other.children && files == other.files;
}

} // namespace test
