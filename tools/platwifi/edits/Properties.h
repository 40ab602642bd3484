#pragma once

#include "display/Json.h"
#include "model/Vocabulary.h"

#include <string>
#include <vector>

class WifiNetwork;

namespace cli {

/// How a value comes from the user to the library.
enum class Way {
    plain,      ///< on the command line
    hidden,     ///< never on the command line, since everybody can see that
    enciphered, ///< hidden, and the library takes it enciphered
    reported    ///< not at all: it is what the supplicant reports
};

using platwifi::Word;
using platwifi::Words;

/// One property of a network, by the name that setNetworkParameters() knows.
struct Property {
    const char* name;
    Way way;
    /// Turns what the user has written into what the library takes. @throws WrongUse with what is
    /// allowed, and never with a hidden value; null for what is reported
    std::string (*take)(const Property& property, const std::string& written);
    Value (*read)(const WifiNetwork& network); ///< of a secret, whether it is set
    const char* meaning;
    Words words;     ///< that it can be
    long lowest = 0; ///< of a number
    long highest = 0;
};

/// Whether nobody may see it.
inline bool isSecret(const Property& property) {
    return property.way == Way::hidden || property.way == Way::enciphered;
}

/// The value for people; "" where there is none.
std::string shown(const Property& property, const WifiNetwork& network);

/// All of them, in the order in which they are shown.
const std::vector<Property>& properties();

/// @throws WrongUse for an unknown name
const Property& propertyOf(const std::string& name);

} // namespace cli
