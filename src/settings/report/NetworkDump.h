#pragma once

#include <cstdio>

class WifiNetwork;

namespace platwifi {

/// Prints every field of a network, one a line, secrets in plain, and an empty line.
void printNetwork(std::FILE* out, const WifiNetwork& network);

} // namespace platwifi
