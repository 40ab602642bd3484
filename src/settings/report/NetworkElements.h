#pragma once

#include "settings/report/AttributeWriter.h"

class WifiNetwork;

namespace platwifi {

/// Writes a network with the security that it offers and is configured with.
void writeNetwork(AttributeWriter& out, const WifiNetwork& network);

/// Writes a network as an entry of a short list. No line break follows.
void writeShortNetwork(AttributeWriter& out, const WifiNetwork& network);

} // namespace platwifi
