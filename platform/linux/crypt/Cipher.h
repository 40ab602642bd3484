#pragma once

#include "Base64.h"
#include "SecretBytes.h"

#include <string>
#include <string_view>

namespace platform {

constexpr std::size_t KEY_BYTES = 32;

/// Enciphers with AES-256-GCM: nonce, ciphertext and tag in one.
/// @param bound  is authenticated along with the secret, but not part of the result
/// @throws CryptError where the cipher library fails
Bytes seal(const SecretBytes& key, const std::string& bound, std::string_view plain);

/// The opposite of seal(). The plain bytes end in a NUL that was not part of them before.
/// @throws CryptError "crypt.damaged" where anything at all differs from what was sealed
SecretBytes unseal(const SecretBytes& key, const std::string& bound, const Bytes& sealed);

/// Tells keys apart without telling anything about them: KEY_NAME_BYTES bytes.
std::string nameOfKey(const SecretBytes& key);

constexpr std::size_t KEY_NAME_BYTES = 8;

} // namespace platform
