#include "jni/Frame.h"

#include "support/FakeJni.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

using platwifi::callNative;

namespace {

using Texts = std::vector<std::string>;

// A handler that tells when it is deleted.
class Watched : public JavaExceptionHandler {
public:
    Watched(JNIEnv* environment, bool& deleted)
        : JavaExceptionHandler(environment), m_deleted(deleted) {}
    ~Watched() override { m_deleted = true; }

private:
    bool& m_deleted;
};

TEST(JavaExceptionHandlerWrap, IsOnePointerThatNobodyCopies) {
    EXPECT_EQ(sizeof(JavaExceptionHandlerWrap), sizeof(JavaExceptionHandler*));
    EXPECT_FALSE(std::is_copy_constructible<JavaExceptionHandlerWrap>::value);
}

TEST(JavaExceptionHandlerWrap, DeletesItsHandlerAtTheEndOfTheScope) {
    test::FakeJni java;
    bool deleted = false;
    {
        const JavaExceptionHandlerWrap wrap(new Watched(java.environment(), deleted));
        EXPECT_NE(wrap.errors(), nullptr);
        EXPECT_FALSE(deleted);
    }
    EXPECT_TRUE(deleted);
}

TEST(JavaExceptionHandlerWrap, DeletesItsHandlerWhenAnExceptionPassesThrough) {
    test::FakeJni java;
    bool deleted = false;
    EXPECT_THROW(
        {
            const JavaExceptionHandlerWrap wrap(new Watched(java.environment(), deleted));
            throw std::runtime_error("below");
        },
        std::runtime_error);
    EXPECT_TRUE(deleted);
}

TEST(JavaExceptionHandlerWrap, TakesNoHandler) {
    const JavaExceptionHandlerWrap wrap(nullptr);
    EXPECT_EQ(wrap.errors(), nullptr);
}

TEST(NativeFrame, HandsTheCharactersOverInOrderAndReleasesThem) {
    test::FakeJni java;
    const Texts seen = callNative(
        java.environment(),
        [](ErrorHandler* errors, const char* a, const char* b, const char* c) {
            EXPECT_NE(errors, nullptr);
            return Texts{a, b, c};
        },
        java.javaString("wlan0"), java.javaString("home"), java.javaString("secret"));
    EXPECT_EQ(seen, (Texts{"wlan0", "home", "secret"}));
    EXPECT_EQ(java.heldCharacters(), 0U);
}

TEST(NativeFrame, ConvertsTheFirstStringFirst) {
    test::FakeJni java;
    java.failCall(test::FakeJni::Call::GetStringUTFChars);
    const Texts seen = callNative(
        java.environment(),
        [](ErrorHandler*, const char* a, const char* b, const char* c) {
            return Texts{a ? a : "(null)", b ? b : "(null)", c ? c : "(null)"};
        },
        java.javaString("first"), java.javaString("second"), java.javaString("third"));
    EXPECT_EQ(seen, (Texts{"(null)", "second", "third"}));
    EXPECT_EQ(java.heldCharacters(), 0U);
}

TEST(NativeFrame, HandsANullStringOverAsNull) {
    test::FakeJni java;
    const bool null = callNative(
        java.environment(), [](ErrorHandler*, const char* text) { return text == nullptr; },
        jstring(nullptr));
    EXPECT_TRUE(null);
}

TEST(NativeFrame, WorksWithoutStrings) {
    test::FakeJni java;
    EXPECT_EQ(callNative(java.environment(), [](ErrorHandler*) { return 7; }), 7);
}

// API-10
TEST(NativeFrame, MakesReportedErrorsPendingInJava) {
    test::FakeJni java;
    callNative(java.environment(), [](ErrorHandler* errors) {
        errors->error("what went wrong");
        return 0;
    });
    ASSERT_TRUE(java.pendingException());
    EXPECT_EQ(java.pendingException()->message, "what went wrong");
}

TEST(NativeFrame, RaisesNothingByItself) {
    test::FakeJni java;
    callNative(java.environment(), [](ErrorHandler*) { return 0; });
    EXPECT_FALSE(java.pendingException());
}

TEST(NativeFrame, LetsAnExceptionThroughWithEverythingReleased) {
    test::FakeJni java;
    const auto throwing = [](ErrorHandler*, const char*, const char*) -> int {
        throw std::runtime_error("below");
    };
    EXPECT_THROW(
        callNative(java.environment(), throwing, java.javaString("wlan0"), java.javaString("home")),
        std::runtime_error);
    EXPECT_EQ(java.heldCharacters(), 0U);
    EXPECT_FALSE(java.pendingException());
}

TEST(NativeFrame, ReleasesInReverseOrder) {
    test::FakeJni java;
    bool sinkDeleted = false;
    bool sinkDeletedFirst = true;
    struct AtEnd {
        const bool& sink;
        bool& first;
        ~AtEnd() { first = sink; }
    };
    const auto body = [&] {
        const AtEnd atEnd{sinkDeleted, sinkDeletedFirst};
        return 0;
    };
    {
        const JavaExceptionHandlerWrap wrap(new Watched(java.environment(), sinkDeleted));
        platwifi::withTexts(java.environment(), body);
    }
    EXPECT_TRUE(sinkDeleted);
    EXPECT_FALSE(sinkDeletedFirst);
}

} // namespace
