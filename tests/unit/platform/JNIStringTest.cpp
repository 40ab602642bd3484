#include "platform/JNIString.h"

#include "support/FakeJni.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

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

// The text of a converted string, "(null)" for null.
std::string converted(FakeJni& jni, jstring string) {
    const JNIString result(jni.environment(), string);
    return result.text() ? result.text() : "(null)";
}

TEST(JNIString, IsUtf8) {
    FakeJni jni;
    EXPECT_EQ(converted(jni, jni.javaString("\xED\xA0\xBD\xED\xB8\x80\xED\xB3\xBF")),
              "\xF0\x9F\x98\x80\xFF");
    EXPECT_EQ(converted(jni, jni.javaString("")), "");
}

TEST(JNIString, IsNullForNull) {
    FakeJni jni;
    EXPECT_EQ(converted(jni, nullptr), "(null)");
    EXPECT_EQ(JNIString(nullptr, nullptr).text(), nullptr);
}

TEST(JNIString, IsNullWithoutCharactersAndMakesNoCallWhileAnExceptionIsPending) {
    FakeJni jni;
    jni.failCall(FakeJni::Call::GetStringUTFChars);
    EXPECT_EQ(converted(jni, jni.javaString("x")), "(null)");
    EXPECT_EQ(converted(jni, jni.javaString("x")), "x");
    jni.raise("java/lang/Error", "earlier");
    EXPECT_EQ(converted(jni, jni.javaString("x")), "(null)");
}

} // namespace
