#pragma once

#include "platform/Export.h"

#include <jni.h>
#include <string>

/// Text between C and Java.
///
/// JNI uses modified UTF-8: characters above U+FFFF are two surrogates of three bytes each, U+0000
/// is C0 80. Text of the supplicant need not be UTF-8: an SSID is up to 32 bytes of any value. A
/// byte NN that is part of no valid UTF-8 character becomes the lone low surrogate U+DCNN, and that
/// surrogate becomes the byte again on the way from Java. So no virtual machine gets an illegal
/// sequence, and every byte string without a NUL comes back unchanged. U+0000 from Java becomes the
/// bytes C0 80, so that it does not end the text; back to Java these are two bytes that are not
/// UTF-8.
namespace platform {

/// UTF-8 (or any bytes) to modified UTF-8. Null gives the empty string.
PLATFORM_API std::string toModifiedUtf8(const char* text);

/// Modified UTF-8 from the virtual machine to UTF-8 (or the original bytes). A surrogate that is
/// neither half of a pair nor stands for a byte becomes "?". Null gives the empty string.
PLATFORM_API std::string fromModifiedUtf8(const char* text);

/// fromModifiedUtf8() in place: the result is never longer.
/// @return the end of the text, its NUL
PLATFORM_API char* restoreUtf8(char* text);

/// A new Java string (local reference) of any bytes. Null for null, while an exception is pending,
/// and when the virtual machine has no memory for it, which makes an exception pending.
PLATFORM_API jstring newJavaString(JNIEnv* environment, const char* text);

/// The same of a text that is not null, for a caller that knows that no exception is pending: the
/// question costs as much as taking a string from Java.
PLATFORM_API jstring newJavaStringUnchecked(JNIEnv* environment, const char* text);

} // namespace platform
