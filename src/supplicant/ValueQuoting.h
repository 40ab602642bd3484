#pragma once

#include <string>

namespace platwifi {

/// The value of a network's field as the client expects it: in double quotes where the field is a
/// text and the value neither has a quote at either end nor is a key in hexadecimal.
/// Under the profile `modern` an SSID is any bytes, and is in hexadecimal unless it is plain ASCII.
std::string quotedFor(const char* key, const char* value);

/// The text between double quotes, whatever it holds.
std::string quoted(const char* text);

/// An SSID as the client expects it for a new network.
std::string quotedSsid(const char* ssid);

} // namespace platwifi
