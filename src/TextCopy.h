#pragma once

#include <cstddef>
#include <cstring>

namespace platwifi {

/// A copy of a NUL-terminated text, made with new[]: the caller frees it with delete[].
inline char* copyOf(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    char* const copy = new char[size];
    std::memcpy(copy, text, size);
    return copy;
}

} // namespace platwifi
