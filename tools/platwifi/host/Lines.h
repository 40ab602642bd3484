#pragma once

#include <string>
#include <utility>
#include <vector>

namespace cli {

/// The texts that a function of the library fills into an array, with room for `capacity`. What it
/// made is freed.
/// @param fill  called with the array, the capacity and the place of the count; false for failure
/// @param ok    receives what `fill` returned
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

/// A text that the library made and handed over; "" for none.
inline std::string taken(char* text) {
    std::string copy = text ? text : "";
    delete[] text;
    return copy;
}

} // namespace cli
