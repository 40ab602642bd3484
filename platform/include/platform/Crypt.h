#pragma once

#include "platform/ErrorHandler.h"
#include "platform/Export.h"

#include <cstddef>

/// Enciphers secrets at rest and across boundaries with this device's key.
///
/// Both operations may be called from any thread at once. On success they return 0 and put a
/// NUL-terminated copy into `*result`, made with new[], which the caller frees with delete[]. On
/// failure they return a non-zero value, set `*result` to null (where `result` is not null) and
/// report the cause into `errors` (may be null); no message holds any part of a secret.
///
/// The cipher is AES-256-GCM. An enciphered text is "crypt1:" and the base64 of: 8 bytes that tell
/// which key was used, the 12 random bytes of the nonce, the ciphertext, the 16 bytes of the tag.
/// Everything in front of the nonce is authenticated too.
///
/// The key is a file of 32 random bytes of the calling user, closed to everybody else. It is read
/// at each call, so that a replaced key counts at once. Its path is, first match:
///  1. the environment variable PLATFORM_KEY_FILE, where it is set and not empty,
///  2. /var/lib/platform/crypt.key for root,
///  3. $XDG_STATE_HOME/platform/crypt.key, where that variable holds an absolute path,
///  4. $HOME/.local/state/platform/crypt.key.
/// No variable counts in a program that runs with more rights than its caller. encrypt() makes a
/// missing key file and its folders; whichever process or thread is first, all get the same key.
///
/// Ids of the reported errors:
///  - crypt.null-input     `plain`, `enciphered` or `result` is null
///  - crypt.too-long       more than MAXIMUM_LENGTH bytes to encipher
///  - crypt.damaged        not a text that encrypt() made, or not any more
///  - crypt.other-version  a text of another version of this cipher
///  - crypt.wrong-key      made with another key
///  - crypt.no-key         there is no key file to decipher with
///  - crypt.key-path       no variable tells where the key file is
///  - crypt.key-folder     the key file cannot be made
///  - crypt.key-unreadable, crypt.key-type (not a regular file), crypt.key-owner (another user's),
///    crypt.key-exposed (group or others have rights on it), crypt.key-size (not 32 bytes)
///  - crypt.cipher         the cipher library failed
///  - crypt.no-memory
///  - crypt.no-cipher      this build of the platform has none
class PLATFORM_API Crypt {
public:
    /// How many bytes encrypt() takes at most: plenty for a secret.
    static constexpr std::size_t MAXIMUM_LENGTH = 1024 * 1024;

    /// @param plain  any NUL-terminated bytes, also none; the enciphered text is printable ASCII
    /// and differs
    ///               at each call
    static int encrypt(ErrorHandler* errors, const char* plain, char** result) noexcept;

    /// @param enciphered  a text that encrypt() made with the same key; anything else fails
    static int decrypt(ErrorHandler* errors, const char* enciphered, char** result) noexcept;
};
