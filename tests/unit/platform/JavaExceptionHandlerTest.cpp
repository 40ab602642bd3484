#include "platform/JavaExceptionHandler.h"

#include "support/FakeJni.h"

#include <gtest/gtest.h>

namespace {

using test::FakeJni;

class JavaExceptionHandlerTest : public testing::Test {
protected:
    FakeJni jni;
    JavaExceptionHandler handler{jni.environment()};
};

TEST_F(JavaExceptionHandlerTest, RaisesAReportedErrorAtOnce) {
    EXPECT_FALSE(jni.pendingException());
    MessageBundle bundle("crypt.damaged", "the text is damaged");
    handler.error(&bundle);
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->className, "java/lang/RuntimeException");
    EXPECT_EQ(jni.pendingException()->message, "the text is damaged");
    ASSERT_NE(handler.savedError(), nullptr);
    EXPECT_STREQ(handler.savedError()->id(), "crypt.damaged");
}

TEST_F(JavaExceptionHandlerTest, RaisesThroughItsBaseClass) {
    ErrorHandler& base = handler;
    base.error("only text");
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->message, "only text");
}

TEST_F(JavaExceptionHandlerTest, ConvertsTheTextToModifiedUtf8) {
    handler.error("\xF0\x9F\x98\x80 \xFF");
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->message, "\xED\xA0\xBD\xED\xB8\x80 \xED\xB3\xBF");
}

// API-10
TEST_F(JavaExceptionHandlerTest, KeepsAnExceptionThatIsPendingAlready) {
    handler.error("first");
    handler.error("second");
    EXPECT_EQ(jni.pendingException()->message, "first");
    EXPECT_STREQ(handler.savedError()->text(), "second");
}

TEST_F(JavaExceptionHandlerTest, ClearsItsOwnExceptionOnly) {
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

TEST_F(JavaExceptionHandlerTest, LeavesItsExceptionPendingWhenItIsDestroyed) {
    { JavaExceptionHandler(jni.environment()).error("stays"); }
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->message, "stays");
}

TEST_F(JavaExceptionHandlerTest, RaisesNothingForANullBundle) {
    handler.error(static_cast<MessageBundle*>(nullptr));
    EXPECT_FALSE(jni.pendingException());
}

TEST_F(JavaExceptionHandlerTest, KeepsTheExceptionOfTheVirtualMachineWhenTheClassIsMissing) {
    jni.failCall(FakeJni::Call::FindClass);
    handler.error("lost");
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->className, "java/lang/NoClassDefFoundError");
    EXPECT_STREQ(handler.savedError()->text(), "lost");
}

TEST_F(JavaExceptionHandlerTest, OnlySavesWithoutAnEnvironment) {
    JavaExceptionHandler saving(nullptr);
    saving.error("saved");
    EXPECT_STREQ(saving.savedError()->text(), "saved");
    saving.clearError();
    EXPECT_EQ(saving.savedError(), nullptr);
}

} // namespace
