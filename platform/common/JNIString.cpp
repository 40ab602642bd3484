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

// Copies the whole string to where there is room for it. There are at least `length` bytes, none of them 0;
// a 0 behind them is not promised.
void copyTo(char* text, JNIEnv* environment, jstring string, jsize length) {
    std::memset(text + length, 0, sizeFor(length) - static_cast<std::size_t>(length));
    environment->GetStringUTFRegion(string, 0, length, text);
    platform::restoreUtf8(text);
}

char* newText(JNIEnv* environment, jstring string, jsize length) {
    if (static_cast<std::size_t>(length) >= PTRDIFF_MAX / MOST_BYTES)
        throw std::bad_alloc(); // on a system of 32 bits
    char* const text = new char[sizeFor(length)];
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

void StringArgument::take(JNIEnv* environment, jstring string) {
    const jsize length = environment->GetStringLength(string);
    if (sizeFor(length) > SHORT_SIZE) {
        m_text = newText(environment, string, length);
    } else {
        copyTo(m_short, environment, string, length);
        m_text = m_short;
    }
}

void StringArgument::release() noexcept {
    if (m_text != m_short)
        delete[] m_text;
}

} // namespace platform
