#pragma once

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace platwifi {

/// The number that a text begins with, 0 where it begins with none. One that an int cannot hold
/// gives the nearest that it can.
inline int decimalOf(const char* text) {
    constexpr long long LOWEST = std::numeric_limits<int>::min();
    constexpr long long HIGHEST = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::strtoll(text, nullptr, 10), LOWEST, HIGHEST));
}

} // namespace platwifi
