// The least work of a native that returns a String and that several threads may call.

#include <jni.h>

#include <mutex>

extern "C" JNIEXPORT jstring JNICALL Java_bench_EmptyNative_text(JNIEnv* env, jclass /*unused*/,
                                                                 jstring /*iface*/,
                                                                 jstring /*ssid*/) {
    static std::recursive_mutex mutex;
    const std::lock_guard<std::recursive_mutex> guard(mutex);
    return env->NewStringUTF("02:00:00:00:00:16");
}
