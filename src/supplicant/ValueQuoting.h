#pragma once

#include <string>

namespace platwifi {

/// The value of a network's field as the client expects it: in double quotes where the field is a
/// text and the value neither has a quote at either end nor is a key in hexadecimal.
std::string quotedFor(const char* key, const char* value);

/// The text between double quotes, whatever it holds.
std::string quoted(const char* text);

} // namespace platwifi
