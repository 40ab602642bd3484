#pragma once

#include <string>

namespace platform {

/// Makes a key file of random bytes with mode 0600, and its missing folders with mode 0700. The
/// file appears whole or not at all. One that is there already, also one that another process makes
/// meanwhile, stays as it is, and that is no failure.
/// @throws CryptError "crypt.key-folder" or "crypt.cipher"
void makeKeyFile(const std::string& path);

} // namespace platform
