#pragma once

#include "platform/Export.h"

#include <cstddef>
#include <jni.h>

/// The characters of one Java string as NUL-terminated UTF-8, for the duration of a scope.
///
/// Bytes that came to Java through newJavaString() without being UTF-8 come back as the same bytes
/// (see platform/JavaText.h).
class PLATFORM_API JNIString {
    const char* m_text; // first: callers of the binary interface read it there

public:
    /// @param string  may be null; then text() is null
    JNIString(JNIEnv* environment, jstring string);
    ~JNIString();

    JNIString(const JNIString&) = delete;
    JNIString& operator=(const JNIString&) = delete;

    /// The object's own copy. Null for a null string or environment, and when an exception was
    /// pending: JNI forbids the calls then.
    const char* text() const noexcept { return m_text; }
};

namespace platform {

/// The same for a native, which has the object on its stack: a short text lies in the object and needs
/// no heap.
class PLATFORM_API StringArgument {
public:
    /// @param environment  without a pending exception: Java calls no native with one
    /// @param string       may be null; then text() is null
    StringArgument(JNIEnv* environment, jstring string) {
        if (string)
            take(environment, string);
    }
    ~StringArgument() {
        if (m_text)
            release();
    }

    StringArgument(const StringArgument&) = delete;
    StringArgument& operator=(const StringArgument&) = delete;

    const char* text() const noexcept { return m_text; }

private:
    static constexpr std::size_t SHORT_SIZE = 128; // for 42 characters, whatever they are

    void take(JNIEnv* environment, jstring string);
    void release() noexcept;

    char* m_text = nullptr; // m_short, or owned
    [[maybe_unused]] char m_short[SHORT_SIZE];
};

} // namespace platform
