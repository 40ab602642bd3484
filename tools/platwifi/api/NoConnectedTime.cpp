// The Java API does not report how long a connection stands: the library that knows it is not position-independent.

#include "host/ConnectedTime.h"

namespace cli {

std::optional<int> connectedSeconds(const std::string& /*iface*/, const std::string& /*bssid*/) {
    return std::nullopt;
}

} // namespace cli
