#pragma once

#include <cstdio>

class WifiNetwork;

namespace platwifi {

/// Prints every field of a network, one a line, and an empty line. Secrets are printed in plain.
void printNetwork(std::FILE* out, const WifiNetwork& network);

} // namespace platwifi
