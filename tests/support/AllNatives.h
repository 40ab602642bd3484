#pragma once

#include <cstddef>
#include <jni.h>

namespace test {

/// What a native is called with; each takes the part that it has.
struct NativeArguments {
    jstring iface = nullptr;
    jstring ssid = nullptr;
    jstring text = nullptr;
    jint number = 0;
    bool flag = false;
};

/// A native method of the Java class.
struct Native {
    const char* name;
    void (*call)(JNIEnv* environment, const NativeArguments& arguments);
};

/// All of them, in the order of the Java class.
extern const Native NATIVES[];
extern const std::size_t NATIVE_COUNT;

} // namespace test
