#pragma once

#include "SecretBytes.h"

#include <string>

namespace platform {

enum class MissingKey { Make, Fail };

/// Reads the key from this file, which must be a regular file of the calling user with nobody else
/// having any right on it.
///
/// A missing key file is made on request, with its folders. Of several processes and threads that
/// make it at once one wins and all read the winner's.
/// @throws CryptError with one of the ids "crypt.no-key" and "crypt.key-..."
SecretBytes readKeyFile(const std::string& path, MissingKey missing);

} // namespace platform
