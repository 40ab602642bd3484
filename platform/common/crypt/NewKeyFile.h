#pragma once

#include <string>

namespace platform {

/// Makes a key file of random bytes with mode 0600, and its missing folders with mode 0700. The
/// file appears in one step. An existing file, also one that another process makes meanwhile, is
/// left as it is; that is no failure.
/// @throws CryptError "crypt.key-folder" or "crypt.cipher"
void makeKeyFile(const std::string& path);

} // namespace platform
