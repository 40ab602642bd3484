#pragma once

#include "platform/ErrorHandler.h"
#include "platform/Export.h"

/// Enciphers secrets at rest and across boundaries with this device's key.
///
/// Both operations may be called from any thread at once. On success they return 0 and put a
/// NUL-terminated copy into `*result`, made with new[], which the caller frees with delete[]. On
/// failure they return a non-zero value, set `*result` to null (where `result` is not null) and
/// report the cause into `errors` (may be null); no message holds any part of a secret.
class PLATFORM_API Crypt {
public:
    /// @param plain  any NUL-terminated bytes; the enciphered text is printable ASCII and differs
    ///               at each call
    static int encrypt(ErrorHandler* errors, const char* plain, char** result) noexcept;

    /// @param enciphered  a text that encrypt() made with the same key; anything else fails
    static int decrypt(ErrorHandler* errors, const char* enciphered, char** result) noexcept;
};
