#pragma once

#include "support/AllNatives.h"
#include "support/FakeJni.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>

namespace test {

/// What a native is called with. A null text is null in Java.
struct Given {
    const char* iface = "wlan0";
    const char* ssid = nullptr;
    const char* text = nullptr;
    jint number = 0;
    jboolean flag = JNI_FALSE;
};

/// Calls natives by their names. The destructor checks that no exception is pending.
class NativeCaller {
public:
    NativeCaller() = default;
    NativeCaller(const NativeCaller&) = delete;
    NativeCaller& operator=(const NativeCaller&) = delete;

    jint number(const std::string& native, const Given& given = Given()) {
        return std::get<jint>(call(native, given));
    }

    bool flag(const std::string& native, const Given& given = Given()) {
        const auto result = std::get<jboolean>(call(native, given));
        EXPECT_TRUE(result == JNI_TRUE || result == JNI_FALSE) << native;
        return result == JNI_TRUE;
    }

    jobject object(const std::string& native, const Given& given = Given()) {
        return std::get<jobject>(call(native, given));
    }

    /// The text of a string; "(null)" for null.
    std::string text(const std::string& native, const Given& given = Given()) {
        const jobject string = object(native, given);
        return string ? java.textOf(string) : "(null)";
    }

    FakeJni::Elements elements(const std::string& native, const Given& given = Given()) {
        return java.elementsOf(object(native, given));
    }

    NativeResult call(const std::string& native, const Given& given = Given()) {
        return nativeCalled(native).call(java.environment(),
                                         {inJava(given.iface), inJava(given.ssid),
                                          inJava(given.text), given.number, given.flag});
    }

    FakeJni java;

protected:
    ~NativeCaller() { EXPECT_FALSE(java.pendingException()); }

private:
    jstring inJava(const char* text) { return text ? java.javaString(text) : nullptr; }
};

} // namespace test
