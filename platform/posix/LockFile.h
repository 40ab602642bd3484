#pragma once

#include <cstdint>

/// Locks on the bytes of a file: one file for each user in a folder, which stays there. POSIX has only locks that
/// belong to the process, and closing the file once ends all of them. So a process has the file open once, as long as
/// it needs it, and counts its own claims.
///
/// Each function takes the descriptor of the open folder. Any thread may call; nothing throws.
namespace platform::lockfile {

/// Claims a byte, beside any other claims on it. @return whether it could
bool claim(int folder, std::uint32_t byte) noexcept;

/// Ends one claim of this process.
void release(int folder, std::uint32_t byte) noexcept;

/// Whether this process has more claims on the byte than `own`, or another process of this user has one. The caller
/// has a claim on some byte.
bool isClaimed(int folder, std::uint32_t byte, int own) noexcept;

/// Takes a byte for this process alone, if no other process has it. The caller excludes other threads.
/// @return 0 or an error number: EAGAIN when another process has it, EACCES when another user has made the file
int tryLock(int folder, std::uint32_t byte) noexcept;

void unlock(int folder, std::uint32_t byte) noexcept;

} // namespace platform::lockfile
