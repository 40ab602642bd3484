#include "jni/NativeCall.h"

#include "support/FakeJni.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

using platwifi::NativeCall;
using test::FakeJni;

namespace {

using Texts = std::vector<std::string>;

std::string orNull(const char* text) {
    return text ? text : "(null)";
}

Texts textsOf(const NativeCall& call) {
    return {orNull(call.iface()), orNull(call.ssid()), orNull(call.value())};
}

TEST(NativeCall, IsOfOneScope) {
    EXPECT_FALSE(std::is_copy_constructible<NativeCall>::value);
    EXPECT_FALSE(std::is_copy_assignable<NativeCall>::value);
}

TEST(NativeCall, HasTheCharactersOfItsStringsAndReleasesThem) {
    FakeJni java;
    {
        const NativeCall call(java.environment(), java.javaString("wlan0"), java.javaString("home"),
                              java.javaString("secret"));
        EXPECT_EQ(textsOf(call), (Texts{"wlan0", "home", "secret"}));
    }
    EXPECT_EQ(java.heldCharacters(), 0U);
}

TEST(NativeCall, ConvertsTheFirstStringFirst) {
    FakeJni java;
    java.failCall(FakeJni::Call::GetStringUTFChars);
    const NativeCall call(java.environment(), java.javaString("first"), java.javaString("second"),
                          java.javaString("third"));
    EXPECT_EQ(textsOf(call), (Texts{"(null)", "second", "third"}));
}

TEST(NativeCall, HasANullTextForANullString) {
    FakeJni java;
    const NativeCall call(java.environment(), nullptr, java.javaString("home"), nullptr);
    EXPECT_EQ(textsOf(call), (Texts{"(null)", "home", "(null)"}));
}

TEST(NativeCall, NeedsNoStrings) {
    FakeJni java;
    const NativeCall call(java.environment());
    EXPECT_EQ(textsOf(call), (Texts{"(null)", "(null)", "(null)"}));
}

// API-10
TEST(NativeCall, MakesReportedErrorsPendingInJava) {
    FakeJni java;
    {
        NativeCall call(java.environment());
        call.errors()->error("the cause");
    }
    ASSERT_TRUE(java.pendingException());
    EXPECT_EQ(java.pendingException()->message, "the cause");
}

TEST(NativeCall, RaisesNothingByItself) {
    FakeJni java;
    {
        NativeCall call(java.environment(), java.javaString("wlan0"));
        EXPECT_NE(call.errors(), nullptr);
    }
    EXPECT_FALSE(java.pendingException());
}

TEST(NativeCall, LetsAnExceptionThroughWithEverythingReleased) {
    FakeJni java;
    EXPECT_THROW(
        {
            const NativeCall call(java.environment(), java.javaString("wlan0"),
                                  java.javaString("home"));
            throw std::runtime_error("below");
        },
        std::runtime_error);
    EXPECT_EQ(java.heldCharacters(), 0U);
    EXPECT_FALSE(java.pendingException());
}

} // namespace
