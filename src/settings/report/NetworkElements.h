#pragma once

#include "settings/report/AttributeWriter.h"

class WifiNetwork;

namespace platwifi {

/// Writes a network with its supported and its configured security type.
void writeNetwork(AttributeWriter& out, const WifiNetwork& network);

/// Writes a network as an entry of the short list. No line break follows.
void writeShortNetwork(AttributeWriter& out, const WifiNetwork& network);

} // namespace platwifi
