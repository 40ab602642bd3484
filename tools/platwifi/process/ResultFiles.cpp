#include "process/ResultFiles.h"

#include "values/Texts.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <unistd.h>

namespace cli {
namespace {

constexpr const char* FOLDER = "/tmp";
constexpr const char* PREFIX = "wpa_";

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

} // namespace

// The library names such a file after the command and the thread.
std::vector<std::string> resultsOf(pthread_t thread) {
    std::vector<std::string> files;
    const std::string end = "_result_" + std::to_string(static_cast<long long>(thread));
    std::error_code error;
    for (const auto& file : std::filesystem::directory_iterator(FOLDER, error)) {
        const std::string name = file.path().filename();
        if (beginsWith(name, PREFIX) && endsWith(name, end))
            files.push_back(file.path());
    }
    return files;
}

void removeFiles(const std::vector<std::string>& files) noexcept {
    for (const std::string& file : files)
        unlink(file.c_str());
}

} // namespace cli
