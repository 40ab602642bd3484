#pragma once

#include "Base64.h"
#include "SecretBytes.h"

#include <string>
#include <string_view>

namespace platform {

constexpr std::size_t KEY_BYTES = 32;

/// KEY_BYTES random bytes. @throws CryptError when the cipher library has none
SecretBytes randomKey();

/// Enciphers with AES-256-GCM. The result is nonce, ciphertext and tag.
/// @param bound  authenticated together with the secret, but not part of the result
/// @throws CryptError when the cipher library fails
Bytes seal(const SecretBytes& key, const std::string& bound, std::string_view plain);

/// The reverse of seal(). A NUL is appended to the plain bytes.
/// @throws CryptError "crypt.damaged" when anything differs from what was sealed
SecretBytes unseal(const SecretBytes& key, const std::string& bound, const Bytes& sealed);

/// Identifies a key without revealing anything about it: KEY_NAME_BYTES bytes.
std::string nameOfKey(const SecretBytes& key);

constexpr std::size_t KEY_NAME_BYTES = 8;

} // namespace platform
