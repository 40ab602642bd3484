#include "platform/JNIString.h"

#include "platform/JavaText.h"

#include <cstring>

static_assert(sizeof(JNIString) == sizeof(const char*),
              "callers of the binary interface allocate one pointer");

namespace {

class HeldCharacters {
public:
    HeldCharacters(JNIEnv* environment, jstring string)
        : m_environment(environment), m_string(string),
          m_characters(environment->GetStringUTFChars(string, nullptr)) {}
    ~HeldCharacters() {
        if (m_characters)
            m_environment->ReleaseStringUTFChars(m_string, m_characters);
    }
    HeldCharacters(const HeldCharacters&) = delete;
    HeldCharacters& operator=(const HeldCharacters&) = delete;

    const char* get() const noexcept { return m_characters; }

private:
    JNIEnv* m_environment;
    jstring m_string;
    const char* m_characters;
};

const char* newText(const std::string& text) {
    char* const copy = new char[text.size() + 1];
    std::memcpy(copy, text.c_str(), text.size() + 1);
    return copy;
}

const char* textOf(JNIEnv* environment, jstring string) {
    if (!environment || !string || environment->ExceptionCheck())
        return nullptr;
    const HeldCharacters characters(environment, string);
    return characters.get() ? newText(platform::fromModifiedUtf8(characters.get())) : nullptr;
}

} // namespace

JNIString::JNIString(JNIEnv* environment, jstring string) : m_text(textOf(environment, string)) {}

JNIString::~JNIString() {
    delete[] m_text;
}
