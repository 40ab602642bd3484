// Natives of com.quorvel.platwifi.PlatformCrypt: the platform's cipher for Java programs.

#include "jni/Frame.h"
#include "platform/Crypt.h"
#include "platform/JavaText.h"

#include <memory>

using namespace platwifi;

namespace {

using Operation = int (*)(ErrorHandler*, const char*, char**) noexcept;

// What fails is pending as an exception, and the result is null.
jstring convert(JNIEnv* environment, Operation operation, jstring text) {
    const auto call = [=](ErrorHandler* errors, const char* given) -> jstring {
        char* result = nullptr;
        if (operation(errors, given, &result) != 0)
            return nullptr;
        const std::unique_ptr<char[]> owner(result);
        return platform::newJavaString(environment, result);
    };
    return callNative(environment, call, text);
}

} // namespace

extern "C" {

JNIEXPORT jstring JNICALL Java_com_quorvel_platwifi_PlatformCrypt_encrypt0(JNIEnv* environment,
                                                                           jclass, jstring plain) {
    return convert(environment, &Crypt::encrypt, plain);
}

JNIEXPORT jstring JNICALL Java_com_quorvel_platwifi_PlatformCrypt_decrypt0(JNIEnv* environment,
                                                                           jclass,
                                                                           jstring enciphered) {
    return convert(environment, &Crypt::decrypt, enciphered);
}
}
