#pragma once

#include <memory>
#include <string>

struct wpa_ctrl;

namespace cli {

/// A connection to a control socket. It has a socket of its own in /tmp, which its end removes.
using ControlConnection = std::unique_ptr<wpa_ctrl, void (*)(wpa_ctrl*)>;

/// Connects to the control socket at a path; no child process inherits the connection. Any
/// thread may call it.
/// @return null if that cannot be done
ControlConnection openConnection(const std::string& path);

/// Removes the sockets in /tmp of all connections of this process, for a process that ends without ending
/// them. Allocates no memory: the thread that connects may have been stopped while it held the allocator's lock.
void removeConnectionSockets() noexcept;

} // namespace cli
