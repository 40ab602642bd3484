#pragma once

#include "process/Interrupt.h"

#include <string>

namespace cli {

/// Reads a secret from where the user says: "-" is a line of standard input, typed unseen on a
/// terminal, "@FILE" the first line of a file, "" the empty secret.
/// @param name  what the secret is called, for messages
/// @throws WrongUse for the secret itself, Failure where it cannot be read, Interrupted
std::string readSecret(const std::string& name, const std::string& source,
                       const Interrupt& interrupt);

/// What the library takes for a secret; "" stays as it is. @throws Failure
std::string enciphered(const std::string& secret);

} // namespace cli
