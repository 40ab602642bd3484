#pragma once

#include <sys/types.h>

namespace cli {

/// Kills the child processes of a thread of this process, reaps them, and removes the sockets that
/// the supplicant's clients among them leave in /tmp.
///
/// Allocates no memory: the thread may have been stopped while it held the allocator's lock.
void killChildrenOf(pid_t thread) noexcept;

/// Removes the socket in /tmp through which a process was connected to the supplicant, if it has left one.
/// Allocates no memory.
void removeSocketOf(pid_t process) noexcept;

} // namespace cli
