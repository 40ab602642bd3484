#pragma once

#include "connection/Diagnosis.h"

#include <optional>
#include <string>

class WifiNetwork;

namespace cli {

// What keeps a connection from being made, seen from this host alone.

/// A certificate or private key of the network that does not exist. A file that this user may not see counts
/// as existing, since the supplicant may.
/// @param network  the caller holds the lock of the settings
std::optional<Diagnosis> missingFile(const WifiNetwork& network);

/// That the adapter is blocked by rfkill, or that its link is down.
/// @param interfaces  the folder of the interfaces in sysfs
std::optional<Diagnosis> adapterBlock(const std::string& iface,
                                      const std::string& interfaces = "/sys/class/net");

} // namespace cli
