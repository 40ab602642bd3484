#pragma once

#include <functional>

class WifiNetwork;

namespace platwifi {

/// Reads one field of a network from the supplicant. The value is valid until the next call; null when the
/// field is not set, or the supplicant did not answer.
using ValueSource = std::function<const char*(const char* key)>;

/// Reads every field, in a fixed order, into the network. The WEP index and keys are read only where the
/// key management, which is read before them, is NONE or IEEE8021X.
void readNetworkKeys(WifiNetwork& network, const ValueSource& valueOf);

} // namespace platwifi
