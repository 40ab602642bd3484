// Replaces Crypt.cpp in a cross build whose target has no libcrypto to link with.

#include "platform/Crypt.h"

namespace {

int fail(ErrorHandler* errors, char** result) noexcept {
    if (result)
        *result = nullptr;
    try {
        MessageBundle bundle("crypt.no-cipher",
                             "this build has no cipher; build it where libcrypto can be linked");
        if (errors)
            errors->error(&bundle);
    } catch (...) {
        // The handler itself failed. The status that is returned shows the error.
    }
    return 1;
}

} // namespace

int Crypt::encrypt(ErrorHandler* errors, const char*, char** result) noexcept {
    return fail(errors, result);
}

int Crypt::encryptForThisProcess(ErrorHandler* errors, const char*, char** result) noexcept {
    return fail(errors, result);
}

int Crypt::decrypt(ErrorHandler* errors, const char*, char** result) noexcept {
    return fail(errors, result);
}
