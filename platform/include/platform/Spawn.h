#pragma once

#include "platform/Export.h"

/// Starts programs, the way the platform does it.
class PLATFORM_API Spawn {
public:
    /// Starts `path` as a child process and returns without waiting for it.
    ///
    /// The child gets `arguments` as they are (no shell), the caller's environment, the caller's
    /// standard input, and `output` as both standard output and standard error. No other
    /// descriptor reaches it, its signal mask is empty and every signal has its default action.
    /// It inherits the calling thread's scheduling.
    ///
    /// A path under /proc/boot/ names a program of the boot image. The platform library knows
    /// where these programs are on this system; `arguments[0]` is left as given.
    ///
    /// @param path       the program; null fails with EINVAL
    /// @param arguments  argument vector with its closing null pointer; null fails with EINVAL
    /// @param output     an open descriptor
    /// @return the child's process id, to be reaped by the caller, or -1 with errno set; then
    ///         there is no child. The first time in a process that a program of the boot image is
    ///         missing or cannot be run, a line on standard error says so, and where it was looked for.
    static int start(const char* path, const char* const arguments[], int output) noexcept;
};
