#pragma once

#include <string>
#include <sys/types.h>

namespace platform {

/// Where this user's key file is, in the order that platform/Crypt.h tells.
/// @throws CryptError "crypt.key-path" where nothing tells
std::string keyPath(uid_t user);

} // namespace platform
