#pragma once

namespace platform {

/// Gives the calling thread a name for debuggers and lists of threads, where the system has such names.
/// @param name  15 bytes at most
void nameThread(const char* name) noexcept;

} // namespace platform
