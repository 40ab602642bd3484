#pragma once

#include "edits/Property.h"

#include <string>

namespace cli {

// The members `take` of properties: they check a value of the user and convert it for the library.

std::string takeWord(const Property& property, const std::string& written);    ///< or its number
std::string takeBoolean(const Property& property, const std::string& written); ///< true or false
std::string takeNumber(const Property& property, const std::string& written);  ///< in its range
std::string takeText(const Property& property, const std::string& written);    ///< "" clears it
std::string takePath(const Property& property, const std::string& written);    ///< the same
std::string takeBssid(const Property& property, const std::string& written);   ///< or "any"
std::string takePsk(const Property& property, const std::string& written);     ///< never ""
std::string takeWepKey(const Property& property, const std::string& written);  ///< never ""

} // namespace cli
