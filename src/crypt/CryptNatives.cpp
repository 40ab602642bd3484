// Natives of com.quorvel.platwifi.PlatformCrypt: the platform's cipher for Java programs.

#include "platform/Crypt.h"
#include "platform/JNIString.h"
#include "platform/JavaExceptionHandler.h"
#include "platform/JavaText.h"

#include <memory>

namespace {

using Operation = int (*)(ErrorHandler*, const char*, char**) noexcept;

// After a failure the result is null and an exception is pending.
jstring convert(JNIEnv* env, Operation operation, jstring text) {
    JavaExceptionHandler errors(env);
    const platform::StringArgument given(env, text);
    char* result = nullptr;
    if (operation(&errors, given.text(), &result) != 0)
        return nullptr;
    const std::unique_ptr<char[]> owner(result);
    return platform::newJavaString(env, result);
}

} // namespace

extern "C" {

JNIEXPORT jstring JNICALL Java_com_quorvel_platwifi_PlatformCrypt_encrypt0(JNIEnv* env, jclass,
                                                                           jstring plain) {
    return convert(env, &Crypt::encrypt, plain);
}

JNIEXPORT jstring JNICALL Java_com_quorvel_platwifi_PlatformCrypt_decrypt0(JNIEnv* env, jclass,
                                                                           jstring enciphered) {
    return convert(env, &Crypt::decrypt, enciphered);
}
}
