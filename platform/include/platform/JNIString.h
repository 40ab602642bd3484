#pragma once

#include "platform/Export.h"

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

    /// The object's own copy. Null for a null string or environment, when the virtual machine gave
    /// no characters, and when an exception was pending: JNI forbids the call then.
    const char* text() const noexcept { return m_text; }
};
