#pragma once

#include <string>

namespace test {

/// The path of the calling thread's result file: `prefix` and the thread's id.
std::string resultPath(const std::string& prefix);

/// Puts a folder in the place of a file during its lifetime, so that the file can be neither opened
/// nor removed.
class BlockedFile {
public:
    explicit BlockedFile(const std::string& path);
    ~BlockedFile();

    BlockedFile(const BlockedFile&) = delete;
    BlockedFile& operator=(const BlockedFile&) = delete;

private:
    std::string m_path;
};

} // namespace test
