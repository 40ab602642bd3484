#pragma once

class ErrorHandler;
class WifiNetwork;

namespace platwifi {

/// Changes one property of a network. An unknown name changes nothing.
///
/// Names are compared byte for byte. The meaning of a value depends on the property:
///  - number: the decimal digits at its beginning, 0 if there are none
///  - text: "" clears the field; only the BSSID is set to ""
///  - secret: an enciphered text; "" clears the field; a text that does not decipher changes nothing
///  - boolean: "true" is true, any other value is false
///
/// The caller holds the lock of the network.
/// @param name    null is an unknown name
/// @param value   null clears a text or a secret, and is like "" otherwise
/// @param errors  receives the reason if a secret does not decipher; may be null
void setNetworkProperty(WifiNetwork& network, const char* name, const char* value,
                        ErrorHandler* errors);

} // namespace platwifi
