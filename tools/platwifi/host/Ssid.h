#pragma once

#include <string>

namespace cli {

/// The bytes of an SSID in the notation of the supplicant's client, which writes \xNN, \\, \", \e, \n,
/// \r and \t for bytes that are not plain ASCII. A text without escapes stays as it is.
std::string bytesOfSsid(const std::string& notation);

/// Converts an SSID from the client's notation for a terminal. "(hidden)" if it is empty or all zeros.
std::string shownSsid(const std::string& notation);

/// Converts an SSID from the client's notation for JSON: to UTF-8, or unchanged if the bytes are no UTF-8.
std::string plainSsid(const std::string& notation);

/// Whether two SSIDs, each in the client's notation or plain, are the same.
bool isSameSsid(const std::string& one, const std::string& other);

/// Checks that the SSID has 1 to 32 bytes, in the client's notation or plain.
/// @throws WrongUse if neither
void requireSsid(const std::string& ssid);

} // namespace cli
