#pragma once

namespace cli {

/// Why the supplicant rejects a certificate of the server: the number that it reports.
/// @return plain words; "" for an unknown number
const char* certificateMeaning(int code);

/// Why a server refuses a login by MSCHAPV2 (RFC 2759): the number that it sends.
/// @return plain words; "" for an unknown number
const char* loginMeaning(int code);

/// The name of an EAP method, such as "PEAP", by its number in the registry of IANA.
/// @return "" for a method that the supplicant does not name in a network either
const char* eapMethodName(int number);

} // namespace cli
