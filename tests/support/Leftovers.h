#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace test {

/// What a command could leave behind in this process and on this system.
struct Leftovers {
    std::size_t descriptors;
    std::size_t children;
    std::vector<std::string> files; ///< result files under /tmp

    static Leftovers now();

    bool operator==(const Leftovers& other) const;
};

/// The result files under /tmp, sorted.
std::vector<std::string> resultFiles();

} // namespace test
