#pragma once

#include <string>

namespace cli {

/// The bytes behind the notation of the supplicant's client, which has \xNN, \\, \", \e, \n, \r and
/// \t for what is not plain ASCII. A text without escapes is its own answer.
std::string bytesOfSsid(const std::string& notation);

/// An SSID in the client's notation, fit for a terminal. One without a visible byte is "(hidden)".
std::string shownSsid(const std::string& notation);

/// The same for a program: UTF-8, and the client's notation where the bytes are none.
std::string plainSsid(const std::string& notation);

/// Whether two notations, or plain texts, mean the same network.
bool isSameSsid(const std::string& one, const std::string& other);

/// Refuses what cannot be the SSID of a network, in no notation.
/// @throws WrongUse
void requireSsid(const std::string& ssid);

} // namespace cli
