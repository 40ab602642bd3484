#pragma once

#include "platform/Export.h"

#include <jni.h>
#include <string>

/// Text between C and Java.
///
/// Java's native interface speaks modified UTF-8: characters beyond U+FFFF as two surrogates of
/// three bytes each, U+0000 as C0 80. Text of the field need not even be UTF-8: an SSID is any 32
/// bytes. So that nothing is lost and no virtual machine sees an illegal sequence, a byte NN that
/// is part of no valid UTF-8 character becomes the lone low surrogate U+DCNN, and turns back into
/// that byte on the way in. Every byte string without a NUL survives the round trip. U+0000 comes
/// in as the bytes C0 80, so that it cuts nothing; going out again these are two bytes that are not
/// UTF-8.
namespace platform {

/// UTF-8 (or any bytes) to modified UTF-8. Null gives the empty string.
PLATFORM_API std::string toModifiedUtf8(const char* text);

/// Modified UTF-8, as the virtual machine gives it, to UTF-8 (or the original bytes). A surrogate
/// that is neither half of a pair nor one of the bytes above becomes "?". Null gives "".
PLATFORM_API std::string fromModifiedUtf8(const char* text);

/// A new Java string (local reference) of any bytes. Null for null, while an exception is pending,
/// and where the virtual machine has no memory for it (which leaves an exception pending).
PLATFORM_API jstring newJavaString(JNIEnv* environment, const char* text);

} // namespace platform
