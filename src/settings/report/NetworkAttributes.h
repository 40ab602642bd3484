#pragma once

#include "settings/report/AttributeWriter.h"

class WifiNetwork;

namespace platwifi {

/// What tells a network from the others, and how it is doing: all of it, or the part that a list
/// shows.
void writeDescription(AttributeWriter& out, const WifiNetwork& network);
void writeListEntry(AttributeWriter& out, const WifiNetwork& network);

/// How a network is secured.
/// @param attributes  a set of ConfigurationAttributes: which of them
void writeConfiguration(AttributeWriter& out, const WifiNetwork& network, unsigned int attributes);

} // namespace platwifi
