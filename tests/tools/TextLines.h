#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace test {

/// The lines of a text, without their ends.
inline std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

} // namespace test
