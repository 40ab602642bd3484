#include "jni/Secrets.h"

#include "platform/Crypt.h"

namespace platwifi {

DecipheredText::DecipheredText(ErrorHandler* errors, const char* value) noexcept : m_value(value) {
    if (!value || value[0] == '\0')
        return;
    char* plain = nullptr;
    m_isValid = Crypt::decrypt(errors, value, &plain) == 0;
    m_plain.reset(plain);
}

} // namespace platwifi
