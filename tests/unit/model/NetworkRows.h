#pragma once

#include "model/WifiNetwork.h"

#include <string>
#include <vector>

namespace test {

using TextSetter = bool (WifiNetwork::*)(const char*);
using TextGetter = const char* (WifiNetwork::*)() const;
using NumberSetter = bool (WifiNetwork::*)(unsigned int);
using NumberGetter = unsigned int (WifiNetwork::*)() const;
using FlagSetter = bool (WifiNetwork::*)(bool);
using FlagGetter = bool (WifiNetwork::*)() const;

/// A text field; the name is that of its flag's row.
struct TextRow {
    const char* name;
    TextSetter set;
    TextGetter get;
};

/// A number field of 32 bits.
struct NumberRow {
    const char* name;
    NumberSetter set;
    NumberGetter get;
};

/// A dirty flag (those of the WEP keys apart).
struct FlagRow {
    const char* name;
    FlagSetter set;
    FlagGetter get;
};

const std::vector<TextRow>& textRows();     ///< those with a dirty flag
const std::vector<NumberRow>& numberRows(); ///< those with a dirty flag that take any number
const std::vector<FlagRow>& flagRows();

/// Every field by its name, as text; "null" for a text that is not set.
std::vector<std::string> valuesOf(const WifiNetwork& network);

/// The names of all dirty flags that are set, "wepKey0" to "wepKey3" included.
std::vector<std::string> dirtyOf(const WifiNetwork& network);

/// Sets every dirty flag.
void markAll(WifiNetwork& network);

} // namespace test
