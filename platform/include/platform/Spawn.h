#pragma once

#include "platform/Export.h"

/// Starts programs.
class PLATFORM_API Spawn {
public:
    /// Starts `path` as a child process and returns without waiting for it.
    ///
    /// The child gets `arguments` as they are (no shell), the caller's environment, the caller's
    /// standard input, and `output` as both standard output and standard error. No other
    /// descriptor reaches it, its signal mask is empty and every signal has its default action.
    /// It inherits the calling thread's scheduling.
    ///
    /// A path under /proc/boot/ names a program of the boot image; locateProgram() gives its path
    /// on this system. `arguments[0]` is passed on as given.
    ///
    /// @param path       the program; null fails with EINVAL
    /// @param arguments  argument vector with its closing null pointer; null fails with EINVAL
    /// @param output     an open descriptor
    /// @return the process id of the child, which the caller reaps, or -1 with errno set: there is
    ///         no child then. When a program of the boot image is missing or cannot be run, one
    ///         line on standard error in a process reports it and the places searched.
    static int start(const char* path, const char* const arguments[], int output) noexcept;
};
