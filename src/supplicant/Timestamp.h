#pragma once

#include <cstdio>

namespace platwifi {

/// Whether a time of day stands in front of a line, as some clients put it there.
inline bool isStamped(const char* line) {
    int number = 0;
    float seconds = 0.0F;
    return std::sscanf(line, "%d:%d:%f: %*s", &number, &number, &seconds) == 3;
}

} // namespace platwifi
