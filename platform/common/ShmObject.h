#pragma once

#include <cstddef>
#include <sys/stat.h>

// What the shared memory of every POSIX system has in common.
namespace platform {

constexpr mode_t SHM_MODE = 0777; // minus the umask

/// Whether it may be an object of this size, whatever is in it.
bool looksLikeObject(const struct stat& status, std::size_t size) noexcept;

/// Whether this process joins the object. One of another user is not joined: that user could truncate it, which ends
/// this process when it touches the memory.
bool isTrusted(const struct stat& status) noexcept;

/// Prints a line, once in a process, if what was replaced, and had this status, may be an object of another user's
/// processes: they do not notice that it has lost its name.
void warnOfReplacement(const char* name, const struct stat& status, std::size_t size);

/// Reserves the space of the object. Without this, writing to the memory would end the process when the file system
/// is full.
bool reserveSpace(int file, std::size_t size) noexcept;

} // namespace platform
