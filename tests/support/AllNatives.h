#pragma once

#include <cstddef>
#include <jni.h>
#include <string>
#include <variant>

namespace test {

/// What a native is called with; each takes the part that it has.
struct NativeArguments {
    jstring iface = nullptr;
    jstring ssid = nullptr;
    jstring text = nullptr;
    jint number = 0;
    jboolean flag = JNI_FALSE;
};

/// What a native returns: a number, a flag, or a string or an array.
using NativeResult = std::variant<jint, jboolean, jobject>;

/// A native method of the Java class.
struct Native {
    const char* name;
    NativeResult (*call)(JNIEnv* environment, const NativeArguments& with);
};

/// All of them, in the order of the Java class.
extern const Native NATIVES[];
extern const std::size_t NATIVE_COUNT;

/// The native of this name, which must exist.
const Native& nativeCalled(const std::string& name);

} // namespace test
