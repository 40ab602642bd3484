#pragma once

#include <string>

namespace platwifi {

/// An SSID as the client prints it: bytes that are not printable ASCII, the double quote and the backslash
/// are escapes.
std::string printedSsid(const std::string& ssid);

} // namespace platwifi
