#pragma once

#include "settings/report/AttributeWriter.h"

class WifiNetwork;

namespace platwifi {

/// Write the attributes that identify a network and describe its state: all of them, or those of an entry
/// in the short list.
void writeDescription(AttributeWriter& out, const WifiNetwork& network);
void writeListEntry(AttributeWriter& out, const WifiNetwork& network);

/// Writes the attributes of a network's security configuration.
/// @param attributes  a set of ConfigurationAttributes: the groups to write
void writeConfiguration(AttributeWriter& out, const WifiNetwork& network, unsigned int attributes);

} // namespace platwifi
