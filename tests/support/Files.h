#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace test {

/// The bytes of a file; none when it cannot be read.
inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

} // namespace test
