#pragma once

#include "jni/JavaExceptionHandlerWrap.h"
#include "platform/JNIString.h"

#include <jni.h>

/// Opens the definition of a native method of the Java class.
#define PLATWIFI_NATIVE(result, method)                                                            \
    extern "C" JNIEXPORT result JNICALL Java_com_quorvel_platwifi_BWifiPlatformService_##method

namespace platwifi {

template <typename Body>
auto withTexts(JNIEnv* /*environment*/, const Body& body) {
    return body();
}

/// Runs `body` with the characters of each Java string, converted in order and released in reverse.
template <typename Body, typename... Rest>
auto withTexts(JNIEnv* environment, const Body& body, jstring first, Rest... rest) {
    const JNIString text(environment, first);
    const auto withFirst = [&](auto... others) { return body(text.text(), others...); };
    return withTexts(environment, withFirst, rest...);
}

/// The frame of every native: makes the call's error sink, converts the string arguments, runs
/// `body(ErrorHandler*, const char*...)` and releases everything in reverse order, also when an
/// exception passes through. A null string is handed on as null.
template <typename Body, typename... Strings>
auto callNative(JNIEnv* environment, const Body& body, Strings... strings) {
    const JavaExceptionHandlerWrap sink(new JavaExceptionHandler(environment));
    const auto withSink = [&](auto... texts) { return body(sink.errors(), texts...); };
    return withTexts(environment, withSink, strings...);
}

} // namespace platwifi
