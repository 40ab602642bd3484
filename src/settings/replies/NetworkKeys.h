#pragma once

#include <functional>

class WifiNetwork;

namespace platwifi {

/// Asks the supplicant for one field of a network. The value stays until the next question; null
/// when the field is not set, or the supplicant did not answer.
using ValueSource = std::function<const char*(const char* key)>;

/// Asks for every field, one after the other, and takes the values into the network. WEP keys are
/// asked for only where the key management, which was read before them, knows such keys.
void readNetworkKeys(WifiNetwork& network, const ValueSource& valueOf);

} // namespace platwifi
