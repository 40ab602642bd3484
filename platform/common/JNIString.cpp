#include "platform/JNIString.h"

#include "platform/JavaText.h"

#include <cstdint>
#include <cstring>
#include <new>

static_assert(sizeof(JNIString) == sizeof(const char*),
              "callers of the binary interface allocate one pointer");

namespace {

constexpr std::size_t MOST_BYTES = 3; // of modified UTF-8, for a character of Java

std::size_t sizeFor(jsize length) {
    return static_cast<std::size_t>(length) * MOST_BYTES + 1;
}

// Copies the whole string into zeros: JNI need not write a NUL.
void copyTo(char* zeros, JNIEnv* environment, jstring string, jsize length) {
    environment->GetStringUTFRegion(string, 0, length, zeros);
    platform::restoreUtf8(zeros);
}

char* newText(JNIEnv* environment, jstring string, jsize length) {
    if (static_cast<std::size_t>(length) >= PTRDIFF_MAX / MOST_BYTES)
        throw std::bad_alloc(); // on a system of 32 bits
    char* const text = new char[sizeFor(length)]();
    copyTo(text, environment, string, length);
    return text;
}

} // namespace

JNIString::JNIString(JNIEnv* environment, jstring string) : m_text(nullptr) {
    if (environment && string && !environment->ExceptionCheck())
        m_text = newText(environment, string, environment->GetStringLength(string));
}

JNIString::~JNIString() {
    delete[] m_text;
}

namespace platform {

StringArgument::StringArgument(JNIEnv* environment, jstring string) {
    if (!string)
        return;
    const jsize length = environment->GetStringLength(string);
    if (sizeFor(length) > SHORT_SIZE) {
        m_text = newText(environment, string, length);
    } else {
        std::memset(m_short, 0, SHORT_SIZE);
        copyTo(m_short, environment, string, length);
        m_text = m_short;
    }
}

StringArgument::~StringArgument() {
    if (m_text != m_short)
        delete[] m_text;
}

} // namespace platform
