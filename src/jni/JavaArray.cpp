#include "jni/JavaArray.h"

#include "platform/JavaText.h"

namespace platwifi {

jobjectArray newArrayOfEmptyTexts(JNIEnv* environment, unsigned short count) {
    jclass const stringClass = environment->FindClass("java/lang/String");
    jstring const empty = stringClass ? environment->NewStringUTF("") : nullptr;
    return empty ? environment->NewObjectArray(count, stringClass, empty) : nullptr;
}

// The reference is given back at once: a virtual machine promises room for 16 only.
bool setElement(JNIEnv* environment, jobjectArray array, unsigned short index, const char* text) {
    jstring const string = platform::newJavaString(environment, text);
    if (!string)
        return false;
    environment->SetObjectArrayElement(array, index, string);
    environment->DeleteLocalRef(string);
    return true;
}

jobjectArray newJavaArray(JNIEnv* environment, const char* const entries[], unsigned short count) {
    jobjectArray const array = newArrayOfEmptyTexts(environment, count);
    if (!array)
        return nullptr;
    for (unsigned short i = 0; i < count; ++i) {
        if (entries[i] && !setElement(environment, array, i, entries[i]))
            return nullptr;
    }
    return array;
}

} // namespace platwifi
