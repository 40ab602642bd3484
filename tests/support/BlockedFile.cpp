#include "support/BlockedFile.h"

#include <filesystem>
#include <pthread.h>

namespace test {

std::string resultPath(const std::string& prefix) {
    return prefix + std::to_string(static_cast<long long>(pthread_self()));
}

BlockedFile::BlockedFile(const std::string& path) : m_path(path) {
    std::filesystem::create_directories(m_path + "/not empty");
}

BlockedFile::~BlockedFile() {
    std::filesystem::remove_all(m_path);
}

} // namespace test
