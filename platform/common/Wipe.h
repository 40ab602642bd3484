#pragma once

#include <stddef.h>

namespace platform {

/// Overwrites bytes that nothing reads any more. A compiler may leave out memset() there, but no write to volatile
/// memory.
inline void wipe(void* bytes, size_t size) noexcept {
    for (volatile unsigned char* byte = static_cast<unsigned char*>(bytes); size > 0; --size)
        *byte++ = 0;
}

} // namespace platform
