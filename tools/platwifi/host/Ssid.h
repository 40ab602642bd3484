#pragma once

#include <string>
#include <vector>

namespace cli {

// The command line holds an SSID as its bytes. Under the profile `device` the library names networks as the
// supplicant's client prints them, with escapes; such a name is shown as it is.

/// An SSID for a terminal: as it is, with \xNN for bytes that cannot be shown. "(hidden)" if it is empty or
/// all zeros.
std::string shownSsid(const std::string& ssid);

/// An SSID for JSON: as it is, or with \xNN if the bytes are no text.
std::string plainSsid(const std::string& ssid);

/// The SSID that a user has typed or copied: as it is, or with \xNN as shownSsid() shows it.
std::string typedSsid(const std::string& typed);

/// What a user may mean by a name, the likeliest first: the bytes, what shownSsid() shows, and what the
/// supplicant's client prints.
std::vector<std::string> readingsOf(const std::string& typed);

/// Whether two names are of the same SSID: one of them may be as the client prints it.
bool isSameSsid(const std::string& one, const std::string& other);

/// Checks that the SSID has 1 to 32 bytes in one of the readings. @throws WrongUse
void requireSsid(const std::string& typed);

} // namespace cli
