#include "platform/JavaText.h"

#include "support/FakeJni.h"
#include "support/ModifiedUtf8.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <vector>

namespace {

using platform::fromModifiedUtf8;
using platform::toModifiedUtf8;
using test::FakeJni;

std::string hex(const std::string& bytes) {
    std::ostringstream out;
    for (const char byte : bytes)
        out << std::hex << std::setw(2) << std::setfill('0')
            << static_cast<unsigned>(static_cast<unsigned char>(byte)) << ' ';
    return out.str();
}

void expectRoundTrip(const std::string& bytes) {
    const std::string modified = toModifiedUtf8(bytes.c_str());
    EXPECT_TRUE(test::isModifiedUtf8(modified)) << hex(bytes) << "gave " << hex(modified);
    EXPECT_EQ(hex(fromModifiedUtf8(modified.c_str())), hex(bytes));
}

TEST(JavaText, LeavesTextWithoutSurrogatesUnchanged) {
    for (const char* text : {"", "plain", "\xC3\xA9", "\xE4\xB8\xAD\xE6\x96\x87", "\xEF\xBF\xBF"}) {
        EXPECT_EQ(toModifiedUtf8(text), text);
        EXPECT_EQ(fromModifiedUtf8(text), text);
    }
}

TEST(JavaText, SplitsCharactersAboveTheFirstPlane) {
    EXPECT_EQ(toModifiedUtf8("\xF0\x9F\x98\x80"), "\xED\xA0\xBD\xED\xB8\x80"); // U+1F600
    EXPECT_EQ(toModifiedUtf8("\xF0\x90\x80\x80"), "\xED\xA0\x80\xED\xB0\x80"); // U+10000
    EXPECT_EQ(toModifiedUtf8("\xF4\x8F\xBF\xBF"), "\xED\xAF\xBF\xED\xBF\xBF"); // U+10FFFF
    EXPECT_EQ(fromModifiedUtf8("\xED\xA0\xBD\xED\xB8\x80"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(fromModifiedUtf8("\xED\xAF\xBF\xED\xBF\xBF"), "\xF4\x8F\xBF\xBF");
}

// TEXT-1
TEST(JavaText, TurnsInvalidBytesIntoLowSurrogates) {
    EXPECT_EQ(toModifiedUtf8("a\x80\xFF"), "a\xED\xB2\x80\xED\xB3\xBF"); // U+DC80, U+DCFF
    EXPECT_EQ(fromModifiedUtf8("a\xED\xB2\x80\xED\xB3\xBF"), "a\x80\xFF");
}

// TEXT-1
TEST(JavaText, RestoresEveryByte) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(static_cast<unsigned char>(byte)));
        expectRoundTrip(one);
        expectRoundTrip("a" + one + "b");
        all += one;
    }
    expectRoundTrip(all);
}

TEST(JavaText, RestoresIllFormedText) {
    const std::vector<const char*> cutShort{"\xC3", "\xE4\xB8", "\xF0\x9F\x98", "x\xF0\x9F"};
    const std::vector<const char*> overlong{"\xC0\x80",     "\xC1\xBF",         "\xE0\x80\x80",
                                            "\xE0\x9F\xBF", "\xF0\x80\x80\x80", "\xF0\x8F\xBF\xBF"};
    const std::vector<const char*> surrogates{"\xED\xA0\x80", "\xED\xB0\x80",
                                              "\xED\xA0\xBD\xED\xB8\x80", "\xED\xB2\x80",
                                              "\xED\xA0\x80\x80"};
    const std::vector<const char*> tooLarge{"\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE", "\xFF"};
    const std::vector<const char*> strayEnds{"\xF0\x9F\x98\x80\xB8", "\xF0\x9F\x98\x80\xF0",
                                             "\xE4\xB8\xAD\xAD"};
    for (const auto& texts : {cutShort, overlong, surrogates, tooLarge, strayEnds}) {
        for (const char* bytes : texts)
            expectRoundTrip(bytes);
    }
}

TEST(JavaText, RestoresRandomBytes) {
    std::mt19937 random(20240229);
    for (int i = 0; i < 50000; ++i)
        expectRoundTrip(test::randomBytes(random));
}

TEST(JavaText, DoesNotEndAtANulFromJava) {
    EXPECT_EQ(fromModifiedUtf8("a\xC0\x80"
                               "b"),
              "a\xC0\x80"
              "b");
}

TEST(JavaText, ReplacesOtherLoneSurrogates) {
    EXPECT_EQ(fromModifiedUtf8("\xED\xA0\x80"), "?");              // lone high
    EXPECT_EQ(fromModifiedUtf8("\xED\xB0\x80"), "?");              // lone low
    EXPECT_EQ(fromModifiedUtf8("\xED\xB1\xBF\xED\xB4\x80"), "??"); // U+DC7F, U+DD00
    EXPECT_EQ(fromModifiedUtf8("\xED\xA0\x80\xED\xA0\xBD\xED\xB8\x80"), "?\xF0\x9F\x98\x80");
    EXPECT_EQ(fromModifiedUtf8("\xED\xA0\x80x"), "?x");
}

TEST(JavaText, AcceptsIllFormedModifiedUtf8) {
    EXPECT_EQ(fromModifiedUtf8("\xED"), "\xED");
    EXPECT_EQ(fromModifiedUtf8("\xED\xA0"), "\xED\xA0");
    EXPECT_EQ(fromModifiedUtf8("\xF0\x9F\x98\x80\xFF"), "\xF0\x9F\x98\x80\xFF");
}

TEST(JavaText, TreatsNullAsEmpty) {
    EXPECT_EQ(toModifiedUtf8(nullptr), "");
    EXPECT_EQ(fromModifiedUtf8(nullptr), "");
}

TEST(NewJavaString, IsMadeOfAnyBytes) {
    FakeJni jni;
    const jstring string = platform::newJavaString(jni.environment(), "\xF0\x9F\x98\x80\xFF");
    EXPECT_EQ(jni.textOf(string), "\xED\xA0\xBD\xED\xB8\x80\xED\xB3\xBF");
}

// Whatever comes behind plain text.
TEST(NewJavaString, IsMadeOfPlainTextAndOtherBytes) {
    FakeJni jni;
    const auto inJava = [&jni](const char* text) {
        return jni.textOf(platform::newJavaString(jni.environment(), text));
    };
    EXPECT_EQ(inJava(""), "");
    EXPECT_EQ(inJava("\x01 ~\x7F"), "\x01 ~\x7F");
    EXPECT_EQ(inJava("\x80"), "\xED\xB2\x80");
    EXPECT_EQ(inJava("plain, then \xFF"), "plain, then \xED\xB3\xBF");
    EXPECT_EQ(inJava("plain, then \xC3\xA9 and more"), "plain, then \xC3\xA9 and more");
}

TEST(NewJavaString, IsNullForNull) {
    FakeJni jni;
    EXPECT_EQ(platform::newJavaString(jni.environment(), nullptr), nullptr);
    EXPECT_EQ(platform::newJavaString(nullptr, "x"), nullptr);
    EXPECT_TRUE(jni.stringsMade().empty());
}

TEST(NewJavaString, IsNullWhenItCannotBeMade) {
    FakeJni jni;
    jni.failCall(FakeJni::Call::NewStringUTF);
    EXPECT_EQ(platform::newJavaString(jni.environment(), "x"), nullptr);
    EXPECT_EQ(platform::newJavaString(jni.environment(), "x"), nullptr)
        << "an exception is pending";
    jni.catchException();
    EXPECT_NE(platform::newJavaString(jni.environment(), "x"), nullptr);
}

} // namespace
