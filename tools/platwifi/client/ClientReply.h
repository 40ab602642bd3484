#pragma once

#include <string>

namespace cli {

/// Runs the supplicant's client for an interface.
/// @param command   first word of the command
/// @param argument  second word, or null
/// @return what the client prints, also when it fails, without white space at the end; "" if it prints
///         nothing within about 5 s
std::string clientReply(const std::string& iface, const char* command, const char* argument);

/// Runs the client with `--version`.
/// @return the first line that it prints, which only the quick client begins with "platwifi quick client "
std::string clientVersion();

/// Runs the process lister.
/// @return one process a line: its id and its arguments
std::string processList();

} // namespace cli
