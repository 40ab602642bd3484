#include "jni/JavaArray.h"

#include "platform/JavaText.h"

namespace platwifi {

jobjectArray newArrayOfEmptyTexts(JNIEnv* env, unsigned short count) {
    jclass const stringClass = env->FindClass("java/lang/String");
    jstring const empty = stringClass ? env->NewStringUTF("") : nullptr;
    return empty ? env->NewObjectArray(count, stringClass, empty) : nullptr;
}

// Deletes the reference at once: a virtual machine guarantees room for 16 only.
bool setElement(JNIEnv* env, jobjectArray array, unsigned short index, const char* text) {
    jstring const string = platform::newJavaString(env, text);
    if (!string)
        return false;
    env->SetObjectArrayElement(array, index, string);
    env->DeleteLocalRef(string);
    return true;
}

jobjectArray newJavaArray(JNIEnv* env, const char* const entries[], unsigned short count) {
    jobjectArray const array = newArrayOfEmptyTexts(env, count);
    if (!array)
        return nullptr;
    for (unsigned short i = 0; i < count; ++i) {
        if (entries[i] && !setElement(env, array, i, entries[i]))
            return nullptr;
    }
    return array;
}

} // namespace platwifi
