#include "jni/Secrets.h"

#include "platform/Crypt.h"
#include "platform/JavaText.h"

namespace platwifi {

jstring newEncipheredString(JNIEnv* env, ErrorHandler* errors, const char* plain) {
    char* enciphered = nullptr;
    if (!plain || Crypt::encrypt(errors, plain, &enciphered) != 0)
        return nullptr;
    const std::unique_ptr<char[]> owner(enciphered);
    return platform::newJavaString(env, enciphered);
}

DecipheredText::DecipheredText(ErrorHandler* errors, const char* value) noexcept : m_value(value) {
    if (!value || value[0] == '\0')
        return;
    char* plain = nullptr;
    m_isValid = Crypt::decrypt(errors, value, &plain) == 0;
    m_plain.reset(plain);
}

} // namespace platwifi
