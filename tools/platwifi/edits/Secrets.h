#pragma once

#include "process/Cancellation.h"

#include <string>

namespace cli {

/// Reads a secret.
/// @param name    name of the property, for the prompt and for messages
/// @param source  "-" for a line of standard input, which a terminal does not echo; "@FILE" for the first
///                line of a file; "" for the empty secret, which clears a password
/// @throws WrongUse for any other source, such as the secret itself
/// @throws Failure if it cannot be read
/// @throws Interrupted
std::string readSecret(const std::string& name, const std::string& source,
                       const Cancellation& cancellation);

/// Enciphers a secret for the library in this process; "" stays as it is. Uses no key file.
/// @throws Failure
std::string enciphered(const std::string& secret);

} // namespace cli
