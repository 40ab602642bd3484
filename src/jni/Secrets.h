#pragma once

#include "platform/Crypt.h"
#include "platform/JavaText.h"

#include <jni.h>
#include <memory>

namespace platwifi {

/// A secret on its way to Java: the enciphered text of `plain`. Null for null, and where it cannot
/// be enciphered; why is then reported into `errors`.
jstring newEncipheredString(JNIEnv* environment, ErrorHandler* errors, const char* plain);

/// A secret on its way from Java: hands the deciphered text to `set`, which tells whether it took
/// it. Null and "", which clear a field, are handed on as they are. What does not decipher is
/// reported into `errors`, and `set` is not called.
template <typename Setter>
bool setDeciphered(ErrorHandler* errors, const char* value, const Setter& set) {
    if (!value || value[0] == '\0')
        return set(value);
    char* plain = nullptr;
    if (Crypt::decrypt(errors, value, &plain) != 0)
        return false;
    const std::unique_ptr<char[]> owner(plain);
    return set(static_cast<const char*>(plain));
}

} // namespace platwifi
