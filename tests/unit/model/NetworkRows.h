#pragma once

#include "model/WifiNetwork.h"
#include "support/FieldTable.h"

#include <string>
#include <vector>

namespace test {

/// The public accessors of a field.
template <typename Given, typename Stored>
struct NetworkRow {
    platwifi::Field field;
    bool (WifiNetwork::*set)(Given);
    Stored (WifiNetwork::*get)() const;
    const char* name = rowOf(field).name;
};

using TextRow = NetworkRow<const char*, const char*>;
using NumberRow = NetworkRow<unsigned int, unsigned int>;
using FlagRow = NetworkRow<bool, bool>; ///< of the dirty flag

const std::vector<TextRow>& textRows();     ///< those with a dirty flag, but for the WEP keys
const std::vector<NumberRow>& numberRows(); ///< those with a dirty flag that take any number
const std::vector<FlagRow>& flagRows();     ///< all but those of the WEP keys

/// Whether the field has a dirty flag. The supplicant reports the others, which are never written back.
bool hasFlag(const FieldRow& row);

using FieldValues = std::vector<std::string>;

/// Every field by its name, as "name=value"; "null" for a text that is not set.
FieldValues valuesOf(const WifiNetwork& network);

/// Those of the values that were others before.
FieldValues changesSince(const FieldValues& before, const WifiNetwork& network);

/// The names of all dirty flags that are set, "wepKey0" to "wepKey3" included.
std::vector<std::string> dirtyOf(const WifiNetwork& network);

/// Sets every dirty flag.
void markAll(WifiNetwork& network);

} // namespace test
