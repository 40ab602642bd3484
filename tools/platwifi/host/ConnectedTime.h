#pragma once

#include <optional>
#include <string>

namespace cli {

/// How long the kernel has known an interface to be associated with an access point, in seconds. Nothing where
/// it does not know that, which holds for an interface without Wi-Fi, too.
std::optional<int> connectedSeconds(const std::string& iface, const std::string& bssid);

} // namespace cli
