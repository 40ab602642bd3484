#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

// A process that makes a file larger than its limit (RLIMIT_FSIZE) allows is ended by SIGXFSZ, unless it
// ignores that. The disposition of a signal belongs to the program, so a library looks first.

/// Whether a file may grow to this size, in bytes; if not, errno is EFBIG.
inline bool mayGrowTo(std::size_t size) noexcept {
    rlimit limit{};
    if (getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY ||
        size <= limit.rlim_cur)
        return true;
    errno = EFBIG;
    return false;
}

/// Whether so many bytes may be written to the end of what is open, a file or anything else.
inline bool mayWrite(int descriptor, std::size_t bytes) noexcept {
    struct stat facts {};
    if (fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode))
        return true;
    const off_t end = std::max(facts.st_size, lseek(descriptor, 0, SEEK_CUR));
    return mayGrowTo(static_cast<std::size_t>(end) + bytes);
}

} // namespace platform
