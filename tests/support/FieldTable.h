#pragma once

#include "model/Field.h"

#include <vector>

namespace test {

/// A field of a network, and the name that each interface has for it; null where it has none.
struct FieldRow {
    platwifi::Field field;
    const char* name;      ///< in the messages of tests
    const char* key;       ///< of the client's get_network and set_network
    const char* property;  ///< of setNetworkProperty()
    const char* getter;    ///< native method
    const char* setter;    ///< native method
    const char* attribute; ///< of the full XML document
    const char* label;     ///< of its line in the dump
};

/// Every field, in the order of `Field`. Tests of loading, saving, properties, natives, the document and
/// the dump run over these rows.
const std::vector<FieldRow>& fieldRows();

const FieldRow& rowOf(platwifi::Field field);

/// Whether the field is a text; all others are numbers.
bool isText(const FieldRow& row);

/// Whether the natives, the properties and the document have the field only enciphered.
bool isEnciphered(const FieldRow& row);

} // namespace test
