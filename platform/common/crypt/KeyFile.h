#pragma once

#include "SecretBytes.h"

#include <string>

namespace platform {

enum class MissingKey { MAKE, FAIL };

/// Reads the key from this file. It must be a regular file of the calling user, without rights for
/// group and others.
///
/// With MAKE, a missing key file and its folders are made. When several processes and threads do so
/// at once, all of them read the same key.
/// @throws CryptError with one of the ids "crypt.no-key" and "crypt.key-..."
SecretBytes readKeyFile(const std::string& path, MissingKey missing);

} // namespace platform
