#pragma once

#include "edits/Property.h"

#include <string>

namespace cli {

// The members `take` of properties: they check a value of the user and convert it for the library.

std::string takeWord(const Property& property, const std::string& written);    ///< or its number
std::string takeWords(const Property& property, const std::string& written);   ///< one or several
std::string takeBoolean(const Property& property, const std::string& written); ///< true or false
std::string takeNumber(const Property& property, const std::string& written);  ///< in its range
std::string takeText(const Property& property, const std::string& written);    ///< "" clears it
std::string takePath(const Property& property, const std::string& written);  ///< as an absolute one
std::string takeBssid(const Property& property, const std::string& written); ///< or "any"
std::string takePsk(const Property& property,
                    const std::string& written); ///< never ""; see isPsk()
std::string takeWepKey(const Property& property, const std::string& written); ///< never ""

/// Whether a key fits all methods of key management. Those of SAE take any key.
bool isPsk(const std::string& key);

} // namespace cli
