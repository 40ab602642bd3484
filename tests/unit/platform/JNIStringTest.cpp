#include "platform/JNIString.h"

#include "support/FakeJni.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using test::FakeJni;

TEST(JNIString, HoldsTheTextAndReleasesTheCharacters) {
    FakeJni jni;
    const JNIString string(jni.environment(), jni.javaString("home"));
    EXPECT_STREQ(string.text(), "home");
    EXPECT_EQ(jni.heldCharacters(), 0u);
}

TEST(JNIString, HasTheTextAsItsFirstAndOnlyMember) {
    FakeJni jni;
    const JNIString string(jni.environment(), jni.javaString("x"));
    const char* member = nullptr;
    static_assert(sizeof(string) == sizeof(member));
    std::memcpy(&member, &string, sizeof(member));
    EXPECT_EQ(member, string.text());
}

TEST(JNIString, GivesUtf8) {
    FakeJni jni;
    const JNIString string(jni.environment(),
                           jni.javaString("\xED\xA0\xBD\xED\xB8\x80\xED\xB3\xBF"));
    EXPECT_STREQ(string.text(), "\xF0\x9F\x98\x80\xFF");
}

TEST(JNIString, IsEmptyForAnEmptyString) {
    FakeJni jni;
    EXPECT_STREQ(JNIString(jni.environment(), jni.javaString("")).text(), "");
}

TEST(JNIString, IsNullForNull) {
    FakeJni jni;
    EXPECT_EQ(JNIString(jni.environment(), nullptr).text(), nullptr);
    EXPECT_EQ(JNIString(nullptr, nullptr).text(), nullptr);
}

TEST(JNIString, IsNullWhenTheCharactersAreNotGiven) {
    FakeJni jni;
    jni.failCall(FakeJni::Call::GetStringUTFChars);
    EXPECT_EQ(JNIString(jni.environment(), jni.javaString("x")).text(), nullptr);
}

TEST(JNIString, MakesNoCallWhileAnExceptionIsPending) {
    FakeJni jni;
    jni.raise("java/lang/Error", "earlier");
    EXPECT_EQ(JNIString(jni.environment(), jni.javaString("x")).text(), nullptr);
}

} // namespace
