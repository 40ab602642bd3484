#pragma once

#include "platform/FileDescriptor.h"

#include <spawn.h>

namespace platform {

/// Both ends of a pipe, closed in programs that this process starts; neither is open when there is none.
struct Pipe {
    FileDescriptor reader;
    FileDescriptor writer;

    Pipe() noexcept;
};

/// Closes this descriptor and all above it. Needs neither memory nor locks: for a process that was forked from one
/// with several threads.
void closeFrom(int first) noexcept;

/// Has the started program get none of the caller's descriptors from this one on.
/// @return 0 or an error number
int addCloseFrom(posix_spawn_file_actions_t& actions, int first) noexcept;

} // namespace platform
