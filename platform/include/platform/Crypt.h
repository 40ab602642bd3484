#pragma once

#include "platform/ErrorHandler.h"
#include "platform/Export.h"

#include <cstddef>

/// Enciphers secrets with the key of this user on this device, for storage and for transport to
/// Java.
///
/// Any thread may call each operation at any time. On success they return 0 and set `*result` to a
/// NUL-terminated text, made with new[], which the caller frees with delete[]. On failure they
/// return a non-zero value, set `*result` to null (unless `result` is null) and report the cause to
/// `errors` (may be null). No message holds any part of a secret.
///
/// The cipher is AES-256-GCM. An enciphered text is "crypt1:" and the base64 of: 8 bytes that
/// identify the key, the 12 random bytes of the nonce, the ciphertext, the 16 bytes of the tag.
/// Everything before the nonce is authenticated too.
///
/// A secret that never leaves this process needs no key file: encryptForThisProcess() uses a
/// random key in memory, and its texts begin with "process1:".
///
/// The key of all other texts is a file of 32 random bytes that only the calling user may access.
/// Each call reads it, so a replaced key takes effect at once. Its path is the first of these:
///  1. the environment variable PLATFORM_KEY_FILE, if it is set and not empty,
///  2. /var/lib/platform/crypt.key for root,
///  3. $XDG_STATE_HOME/platform/crypt.key, if the variable holds an absolute path,
///  4. $HOME/.local/state/platform/crypt.key.
/// All variables are ignored in a program that runs with more rights than its caller. encrypt()
/// makes a missing key file and its folders; of several threads and processes that do so at once,
/// all get the same key.
///
/// Ids of the reported errors:
///  - crypt.null-input     `plain`, `enciphered` or `result` is null
///  - crypt.too-long       more than MAXIMUM_LENGTH bytes to encipher
///  - crypt.damaged        not a text that encrypt() made, or changed since
///  - crypt.other-version  a text of another version of this cipher
///  - crypt.wrong-key      made with another key
///  - crypt.other-process  a text that encryptForThisProcess() made in another process
///  - crypt.no-key         there is no key file to decipher with
///  - crypt.key-path       no variable gives the path of the key file
///  - crypt.key-folder     the key file cannot be made
///  - crypt.key-unreadable, crypt.key-type (not a regular file), crypt.key-owner (another user's),
///    crypt.key-exposed (group or others have rights on it), crypt.key-size (not 32 bytes)
///  - crypt.cipher         the cipher library failed
///  - crypt.no-memory
///  - crypt.no-cipher      this build of the platform has none
class PLATFORM_API Crypt {
public:
    /// The largest number of bytes that encrypt() accepts.
    static constexpr std::size_t MAXIMUM_LENGTH = std::size_t{1} << 20U;

    /// @param plain  any NUL-terminated bytes, possibly none. The enciphered text is printable
    ///               ASCII and differs at each call.
    static int encrypt(ErrorHandler* errors, const char* plain, char** result) noexcept;

    /// Enciphers for decrypt() in this process and in the processes that it forks from then on, and nowhere
    /// else. Neither reads nor makes a key file.
    /// @param plain  as for encrypt()
    static int encryptForThisProcess(ErrorHandler* errors, const char* plain,
                                     char** result) noexcept;

    /// @param enciphered  a text that encrypt() made with the same key, or encryptForThisProcess() in this
    ///                    process; anything else fails
    static int decrypt(ErrorHandler* errors, const char* enciphered, char** result) noexcept;
};
