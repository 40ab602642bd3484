#pragma once

#include <sys/types.h>

namespace cli {

/// Ends the children that a thread of this process has started, waits until they are gone, and removes
/// the sockets that clients among them leave behind. Takes no memory: the thread may have been stopped
/// while it held the lock of that.
void endChildrenOf(pid_t thread) noexcept;

} // namespace cli
