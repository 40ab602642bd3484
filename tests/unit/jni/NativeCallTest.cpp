// What the natives have in common, by itself.

#include "jni/NativeCall.h"

#include "support/FakeJni.h"

#include <gtest/gtest.h>

using platwifi::NativeCall;

namespace {

TEST(NativeCall, MakesAStringOfAnyBytes) {
    test::FakeJni jni;
    NativeCall call(jni.environment());
    EXPECT_EQ(jni.textOf(call.newString("home")), "home");
    EXPECT_EQ(jni.textOf(call.newString("\xFF")), "\xED\xB3\xBF");
    EXPECT_EQ(call.newString(nullptr), nullptr);
}

// The environment ends the program where a call is made while an exception is pending.
TEST(NativeCall, MakesNoStringAfterAnError) {
    test::FakeJni jni;
    NativeCall call(jni.environment());
    call.errors()->error("why");
    EXPECT_EQ(call.newString("home"), nullptr);
    EXPECT_TRUE(jni.pendingException());
    call.errors()->clearError();
    EXPECT_EQ(jni.textOf(call.newString("home")), "home");
}

} // namespace
