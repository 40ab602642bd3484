#pragma once

#include <jni.h>

namespace platwifi {

// If the virtual machine has no memory left, the result is null or false, and its exception is pending.

/// A Java array of `count` strings "".
jobjectArray newArrayOfEmptyTexts(JNIEnv* env, unsigned short count);

/// Sets one element to a text.
bool setElement(JNIEnv* env, jobjectArray array, unsigned short index, const char* text);

/// A Java array of strings with `count` elements. A null entry is "" there, never null.
jobjectArray newJavaArray(JNIEnv* env, const char* const entries[], unsigned short count);

} // namespace platwifi
