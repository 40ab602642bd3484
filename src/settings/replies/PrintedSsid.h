#pragma once

#include "Profile.h"

#include <string>

namespace platwifi {

/// An SSID as the client prints it: bytes that are not printable ASCII, the double quote and the backslash
/// are escapes.
std::string printedSsid(const std::string& ssid);

/// The bytes of an SSID that the client printed. What is no escape stands for itself.
std::string bytesOfPrinted(const std::string& printed);

/// An SSID that the client printed, as memory holds it: as it is under the profile `device`, its bytes under
/// `modern`. An SSID with a zero byte stays as it is printed, because texts end there.
inline std::string ssidInMemory(const std::string& printed) {
    if (!rule::SSIDS_ARE_BYTES())
        return printed;
    std::string bytes = bytesOfPrinted(printed);
    return bytes.find('\0') == std::string::npos ? bytes : printed;
}

} // namespace platwifi
