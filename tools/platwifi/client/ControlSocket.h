#pragma once

#include "Paths.h"

#include <string>

namespace cli {

using platwifi::paths::CONTROL_FOLDER;

/// The path of an interface's control socket.
std::string controlSocketOf(const std::string& iface);

/// @return `iface`; if that is "", the first interface that has a control socket and can hold networks;
///         "" if there is none
std::string interfaceFor(const std::string& iface);

/// Connects to a control socket, without sending anything, and closes the connection.
/// @return 0 if a process listens at it and this user may connect; else an errno value
int connectTo(const std::string& path);

/// Whether it is an interface that the supplicant adds by itself for Wi-Fi Direct; it holds no networks.
bool isForWifiDirect(const std::string& iface);

} // namespace cli
