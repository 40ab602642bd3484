#pragma once

#include <string>
#include <sys/types.h>

namespace platform {

/// The path of this user's key file, by the rules in platform/Crypt.h.
/// @throws CryptError "crypt.key-path" when none of them applies
std::string keyPath(uid_t user);

} // namespace platform
