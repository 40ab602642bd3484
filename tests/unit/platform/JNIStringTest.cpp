#include "platform/JNIString.h"

#include "support/FakeJni.h"
#include "support/ModifiedUtf8.h"
#include "support/RandomText.h"

#include "platform/JavaText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>

namespace {

using platform::StringArgument;
using test::FakeJni;

TEST(JNIString, HasTheTextAsItsFirstAndOnlyMember) {
    FakeJni jni;
    const JNIString string(jni.environment(), jni.javaString("x"));
    const char* member = nullptr;
    static_assert(sizeof(string) == sizeof(member));
    std::memcpy(&member, static_cast<const void*>(&string), sizeof(member));
    EXPECT_EQ(member, string.text());
}

// The text of a converted string, "(null)" for null.
template <class Converted>
std::string converted(FakeJni& jni, jstring string) {
    const Converted result(jni.environment(), string);
    return result.text() ? result.text() : "(null)";
}

TEST(JNIString, MakesNoCallWhileAnExceptionIsPending) {
    FakeJni jni;
    jni.raise("java/lang/Error", "earlier");
    EXPECT_EQ(converted<JNIString>(jni, jni.javaString("x")), "(null)");
}

TEST(JNIString, IsNullWithoutAnEnvironment) {
    EXPECT_EQ(JNIString(nullptr, nullptr).text(), nullptr);
}

// What both classes have in common.
template <class Converted>
class StringFromJava : public testing::Test {
protected:
    std::string text(const std::string& modified) {
        return converted<Converted>(jni, jni.javaString(modified));
    }

    FakeJni jni;
};

struct ClassName {
    template <class Converted>
    static std::string GetName(int /*index*/) {
        return std::is_same_v<Converted, JNIString> ? "JNIString" : "StringArgument";
    }
};

using Classes = testing::Types<JNIString, StringArgument>;
TYPED_TEST_SUITE(StringFromJava, Classes, ClassName);

TYPED_TEST(StringFromJava, IsUtf8) {
    EXPECT_EQ(this->text("home"), "home");
    EXPECT_EQ(this->text(""), "");
    EXPECT_EQ(this->text("\xED\xA0\xBD\xED\xB8\x80\xED\xB3\xBF"), "\xF0\x9F\x98\x80\xFF");
}

TYPED_TEST(StringFromJava, DoesNotEndAtANulOfJava) {
    EXPECT_EQ(this->text("a\xC0\x80z"), "a\xC0\x80z");
}

TYPED_TEST(StringFromJava, IsNullForNull) {
    EXPECT_EQ(converted<TypeParam>(this->jni, nullptr), "(null)");
}

// JNI writes no NUL, and says how many characters there are, not how many bytes.
TYPED_TEST(StringFromJava, MayBeOfAnyLength) {
    for (const char* character : {"x", "\xC3\xA9", "\xE4\xB8\xAD"}) {
        std::string text;
        for (int length = 0; length < 150; ++length, text += character)
            ASSERT_EQ(this->text(text), text);
    }
    const std::string longText(100000, 'x');
    EXPECT_EQ(this->text(longText), longText);
}

// TEXT-1
TYPED_TEST(StringFromJava, RestoresRandomBytes) {
    std::mt19937 random(20261122);
    for (int i = 0; i < 500; ++i) {
        const std::string bytes = test::randomBytes(random) + test::randomBytes(random);
        ASSERT_EQ(this->text(platform::toModifiedUtf8(bytes.c_str())), bytes);
    }
}

} // namespace
