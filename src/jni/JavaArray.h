#pragma once

#include <jni.h>

namespace platwifi {

// Where the virtual machine has no memory left, the result is null or false, and its exception is
// pending.

/// A Java array of `count` strings "".
jobjectArray newArrayOfEmptyTexts(JNIEnv* environment, unsigned short count);

/// Puts a text in the place of one element.
bool setElement(JNIEnv* environment, jobjectArray array, unsigned short index, const char* text);

/// A Java array of strings with `count` elements. A null entry is "" there, never null.
jobjectArray newJavaArray(JNIEnv* environment, const char* const entries[], unsigned short count);

} // namespace platwifi
