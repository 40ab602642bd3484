#pragma once

#include "edits/Properties.h"

#include <string>

namespace cli {

// What may be written for a property, and what the library takes for it: the `take` of a Property.

std::string takeWord(const Property& property, const std::string& written);    ///< or its number
std::string takeBoolean(const Property& property, const std::string& written); ///< true or false
std::string takeNumber(const Property& property, const std::string& written);  ///< in its range
std::string takeText(const Property& property, const std::string& written);    ///< "" clears it
std::string takePath(const Property& property, const std::string& written);    ///< the same
std::string takeBssid(const Property& property, const std::string& written);   ///< or "any"
std::string takePsk(const Property& property, const std::string& written);     ///< never ""
std::string takeWepKey(const Property& property, const std::string& written);  ///< never ""

} // namespace cli
