#pragma once

class ErrorHandler;
class WifiNetwork;

namespace platwifi {

/// Changes the property of a network that has this name. A name that no property has changes nothing.
///
/// Names are compared byte for byte. What a value means depends on the property:
///  - number: what it begins with in decimal digits, 0 where that is nothing
///  - text: "" clears it; the BSSID alone takes "" as it stands
///  - secret: an enciphered text; "" clears it; one that does not decipher leaves the field as it is
///  - truth: "true", anything else is false
///
/// The caller holds the lock of the network.
/// @param name    null is no property's name
/// @param value   null clears a text or a secret, and is like "" otherwise
/// @param errors  told why a secret does not decipher; may be null
void setNetworkProperty(WifiNetwork& network, const char* name, const char* value,
                        ErrorHandler* errors);

} // namespace platwifi
