#pragma once

#include <jni.h>

namespace platwifi {

/// A Java array of strings with `count` elements. A null entry is "" there, never null. Null where
/// the virtual machine has no memory left; its exception is then pending.
jobjectArray newJavaArray(JNIEnv* environment, const char* const entries[], unsigned short count);

} // namespace platwifi
