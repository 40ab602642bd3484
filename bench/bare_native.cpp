// What a native costs that exchanges the texts of a getter with Java and that several threads may call, and
// that does nothing else.

#include <jni.h>

#include <mutex>

namespace {

constexpr jsize MOST_BYTES = 3; // of modified UTF-8, for a character of Java

/// A Java string as text on the stack. It fits: the benchmark passes short ones.
class Text {
public:
    Text(JNIEnv* env, jstring string) {
        const jsize length = env->GetStringLength(string);
        env->GetStringUTFRegion(string, 0, length, m_text);
    }

private:
    char m_text[MOST_BYTES * 64];
};

std::recursive_mutex mutex;

} // namespace

extern "C" JNIEXPORT jstring JNICALL Java_bench_BareNative_text(JNIEnv* env, jclass /*unused*/,
                                                                jstring iface, jstring ssid) {
    const Text ifaceText(env, iface);
    const Text ssidText(env, ssid);
    const std::lock_guard<std::recursive_mutex> guard(mutex);
    return env->NewStringUTF("02:00:00:00:00:16");
}

extern "C" JNIEXPORT jint JNICALL Java_bench_BareNative_number(JNIEnv* env, jclass /*unused*/,
                                                               jstring iface, jstring ssid) {
    const Text ifaceText(env, iface);
    const Text ssidText(env, ssid);
    const std::lock_guard<std::recursive_mutex> guard(mutex);
    return 9;
}
