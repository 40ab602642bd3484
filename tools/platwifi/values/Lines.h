#pragma once

#include <string>
#include <utility>
#include <vector>

namespace cli {

/// Copies the texts that a function of the library writes into an array, and frees them.
/// @param capacity  size of the array
/// @param ok        receives the result of `fill`
/// @param fill      called with the array, its size and a pointer to the count of texts; returns
///                  false on failure
template <typename Fill>
std::vector<std::string> linesOf(unsigned char capacity, bool& ok, Fill fill) {
    std::vector<char*> array(capacity, nullptr);
    unsigned char count = 0;
    ok = fill(array.data(), capacity, &count);
    std::vector<std::string> lines;
    for (const char* const line : array) {
        if (line && lines.size() < count)
            lines.emplace_back(line);
        delete[] line;
    }
    return lines;
}

/// Copies a text that the library has allocated, and frees it. "" for null.
inline std::string takeOwnership(char* text) {
    std::string copy = text ? text : "";
    delete[] text;
    return copy;
}

} // namespace cli
