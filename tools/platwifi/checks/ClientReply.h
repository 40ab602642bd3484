#pragma once

#include <string>

namespace cli {

/// What the supplicant's client prints, without the white space at its end, when it is asked for an
/// interface; also what it prints when it fails. "" where it prints nothing in time, which is about
/// 5 s.
/// @param command   its first word
/// @param argument  its second word, or null
std::string clientReply(const std::string& iface, const char* command, const char* argument);

/// What the process lister prints: a process a line, its number and its arguments.
std::string processList();

} // namespace cli
