#pragma once

#include "Paths.h"

#include <string>

namespace cli {

using platwifi::paths::CONTROL_FOLDER;

/// The control socket of an interface.
std::string controlSocketOf(const std::string& iface);

/// The interface to ask about: `iface`, or where that is "" the first that has a control socket and
/// can hold networks; "" where there is none.
std::string interfaceFor(const std::string& iface);

/// Whether somebody listens at a control socket whom this user may talk to. Nothing is sent.
/// @return 0, or an error number
int connectTo(const std::string& path);

/// An interface that the supplicant adds of its own for Wi-Fi Direct: it holds no networks.
bool isForWifiDirect(const std::string& iface);

} // namespace cli
