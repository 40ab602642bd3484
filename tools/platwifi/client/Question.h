#pragma once

#include <optional>
#include <string>

namespace cli {

// Questions to the supplicant, which change nothing. They are asked over its control socket: a child process takes
// ten times as long. The client asks in their place, as a child process, where PLATFORM_BOOT_DIR chooses the
// programs, and where no connection to the control socket can be made.

/// Asks the supplicant of an interface.
/// @param command   first word of the client's command line, which the supplicant knows in capital letters
/// @param argument  second word, or null
/// @return the reply as the client prints it, without white space at the end; "" if there is none within about 5 s
std::string askSupplicant(const std::string& iface, const char* command, const char* argument);

/// Asks only over the control socket.
/// @return nothing where the client has to ask
std::optional<std::string> askDirectly(const std::string& iface, const char* command,
                                       const char* argument);

} // namespace cli
