#pragma once

#include "model/Vocabulary.h"
#include "values/Values.h"

#include <string>

class WifiNetwork;

namespace cli {

/// How the user enters a value, and how the library takes it.
enum class Entry {
    PLAIN,      ///< on the command line
    HIDDEN,     ///< from standard input or a file: every user of the host can see a command line
    ENCIPHERED, ///< the same, and the library takes it enciphered
    REPORTED    ///< cannot be entered: the supplicant reports it
};

using platwifi::Word;
using platwifi::Words;

/// One property of a network, by the name that setNetworkParameters() knows.
struct Property {
    const char* name;
    Entry entry;
    /// Converts the user's value into the library's; null for a REPORTED property.
    /// @throws WrongUse with the values that are allowed, and never with the value of a secret
    std::string (*take)(const Property& property, const std::string& written);
    Value (*read)(const WifiNetwork& network); ///< for a secret: whether it is set
    const char* meaning;
    Words words;     ///< its values, if it takes words
    long lowest = 0; ///< its range, if it takes a number
    long highest = 0;
};

/// Whether its value is never shown.
inline bool isSecret(const Property& property) {
    return property.entry == Entry::HIDDEN || property.entry == Entry::ENCIPHERED;
}

} // namespace cli
