#pragma once

#include <cstddef>
#include <cstring>

namespace platwifi {

/// A copy for a caller, who frees it with delete[].
inline char* copyOf(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    char* const copy = new char[size];
    std::memcpy(copy, text, size);
    return copy;
}

} // namespace platwifi
