#include "jni/Secrets.h"

namespace platwifi {

jstring newEncipheredString(JNIEnv* environment, ErrorHandler* errors, const char* plain) {
    char* enciphered = nullptr;
    if (!plain || Crypt::encrypt(errors, plain, &enciphered) != 0)
        return nullptr;
    const std::unique_ptr<char[]> owner(enciphered);
    return platform::newJavaString(environment, enciphered);
}

} // namespace platwifi
