#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

// The signal SIGXFSZ ends a process that makes a file larger than its limit RLIMIT_FSIZE. The
// disposition of signals belongs to the program, so the library checks the limit before it writes.

/// Whether a file may grow to this size in bytes; if not, sets errno to EFBIG.
inline bool mayGrowTo(std::size_t size) noexcept {
    rlimit limit{};
    if (getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY ||
        size <= limit.rlim_cur)
        return true;
    errno = EFBIG;
    return false;
}

/// Whether so many bytes may be appended to the open file. Always true for anything but a regular
/// file.
inline bool mayWrite(int descriptor, std::size_t bytes) noexcept {
    struct stat facts {};
    if (fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode))
        return true;
    const off_t end = std::max(facts.st_size, lseek(descriptor, 0, SEEK_CUR));
    return mayGrowTo(static_cast<std::size_t>(end) + bytes);
}

} // namespace platform
