#include "platform/JavaExceptionHandler.h"

#include "support/FakeJni.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using test::FakeJni;

TEST(JavaExceptionHandler, RaisesAReportedErrorAtOnce) {
    FakeJni jni;
    JavaExceptionHandler handler(jni.environment());
    EXPECT_FALSE(jni.pendingException());
    MessageBundle bundle("crypt.damaged", "the text is damaged");
    handler.error(&bundle);
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->className, "java/lang/RuntimeException");
    EXPECT_EQ(jni.pendingException()->message, "the text is damaged");
    ASSERT_NE(handler.savedError(), nullptr);
    EXPECT_STREQ(handler.savedError()->id(), "crypt.damaged");
}

TEST(JavaExceptionHandler, RaisesThroughItsBaseClass) {
    FakeJni jni;
    const std::unique_ptr<ErrorHandler> handler(new JavaExceptionHandler(jni.environment()));
    handler->error("only text");
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->message, "only text");
}

TEST(JavaExceptionHandler, ConvertsTheTextToModifiedUtf8) {
    FakeJni jni;
    JavaExceptionHandler handler(jni.environment());
    handler.error("\xF0\x9F\x98\x80 \xFF");
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->message, "\xED\xA0\xBD\xED\xB8\x80 \xED\xB3\xBF");
}

// API-10
TEST(JavaExceptionHandler, KeepsAnExceptionThatIsPendingAlready) {
    FakeJni jni;
    JavaExceptionHandler handler(jni.environment());
    handler.error("first");
    handler.error("second");
    EXPECT_EQ(jni.pendingException()->message, "first");
    EXPECT_STREQ(handler.savedError()->text(), "second");
}

TEST(JavaExceptionHandler, ClearsItsOwnExceptionOnly) {
    FakeJni jni;
    JavaExceptionHandler handler(jni.environment());
    handler.error("mine");
    handler.clearError();
    EXPECT_FALSE(jni.pendingException());
    EXPECT_EQ(handler.savedError(), nullptr);
    jni.raise("java/lang/Error", "theirs");
    handler.error("later");
    handler.clearError();
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->message, "theirs");
}

TEST(JavaExceptionHandler, LeavesItsExceptionPendingWhenItIsDestroyed) {
    FakeJni jni;
    { JavaExceptionHandler(jni.environment()).error("stays"); }
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->message, "stays");
}

TEST(JavaExceptionHandler, RaisesNothingForANullBundle) {
    FakeJni jni;
    JavaExceptionHandler handler(jni.environment());
    handler.error(static_cast<MessageBundle*>(nullptr));
    EXPECT_FALSE(jni.pendingException());
}

TEST(JavaExceptionHandler, KeepsTheExceptionOfTheVirtualMachineWhenTheClassIsMissing) {
    FakeJni jni;
    jni.failCall(FakeJni::Call::FindClass);
    JavaExceptionHandler handler(jni.environment());
    handler.error("lost");
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->className, "java/lang/NoClassDefFoundError");
    EXPECT_STREQ(handler.savedError()->text(), "lost");
}

TEST(JavaExceptionHandler, OnlySavesWithoutAnEnvironment) {
    JavaExceptionHandler handler(nullptr);
    handler.error("saved");
    EXPECT_STREQ(handler.savedError()->text(), "saved");
    handler.clearError();
    EXPECT_EQ(handler.savedError(), nullptr);
}

} // namespace
