#include "support/FakeJni.h"

#include "support/ModifiedUtf8.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

namespace {

using test::FakeJni;
using testing::ElementsAre;

jclass stringClass(FakeJni& jni) {
    return jni.environment()->FindClass("java/lang/String");
}

TEST(FakeJni, GivesTheCharactersOfAString) {
    FakeJni jni;
    JNIEnv* java = jni.environment();
    const jstring string = java->NewStringUTF("home");
    EXPECT_EQ(java->GetStringLength(string), 4);
    char characters[] = "-----";
    java->GetStringUTFRegion(string, 0, 4, characters);
    EXPECT_STREQ(characters, "home-") << "without a NUL";
    EXPECT_EQ(jni.textOf(string), "home");
    EXPECT_THAT(jni.stringsMade(), ElementsAre("home"));
}

TEST(FakeJni, CountsTheCharactersOfJava) {
    FakeJni jni;
    JNIEnv* java = jni.environment();
    const jstring string = java->NewStringUTF("a\xC3\xA9\xED\xA0\xBD\xED\xB8\x80z");
    EXPECT_EQ(java->GetStringLength(string), 5);
    char characters[] = "---------";
    java->GetStringUTFRegion(string, 1, 2, characters);
    EXPECT_STREQ(characters, "\xC3\xA9\xED\xA0\xBD----");
}

TEST(FakeJni, KeepsArraysWithNullElements) {
    FakeJni jni;
    JNIEnv* java = jni.environment();
    const jobjectArray array = java->NewObjectArray(3, stringClass(jni), java->NewStringUTF(""));
    java->SetObjectArrayElement(array, 1, java->NewStringUTF("b"));
    java->SetObjectArrayElement(array, 2, nullptr);
    EXPECT_EQ(java->GetArrayLength(array), 3);
    EXPECT_EQ(jni.textOf(java->GetObjectArrayElement(array, 1)), "b");
    EXPECT_THAT(jni.elementsOf(array), ElementsAre("", "b", std::nullopt));
    java->SetObjectArrayElement(array, 3, nullptr);
    EXPECT_EQ(jni.pendingException()->className, "java/lang/ArrayIndexOutOfBoundsException");
}

TEST(FakeJni, HoldsOnePendingException) {
    FakeJni jni;
    JNIEnv* java = jni.environment();
    EXPECT_FALSE(java->ExceptionCheck());
    EXPECT_EQ(java->ExceptionOccurred(), nullptr);
    java->ThrowNew(java->FindClass("java/lang/RuntimeException"), "why");
    EXPECT_TRUE(java->ExceptionCheck());
    EXPECT_NE(java->ExceptionOccurred(), nullptr);
    ASSERT_TRUE(jni.pendingException());
    EXPECT_EQ(jni.pendingException()->className, "java/lang/RuntimeException");
    EXPECT_EQ(jni.pendingException()->message, "why");
    java->ExceptionClear();
    EXPECT_FALSE(jni.pendingException());
}

TEST(FakeJni, FailsTheChosenCallOnly) {
    FakeJni jni;
    JNIEnv* java = jni.environment();
    jni.failCall(FakeJni::Call::NewStringUTF, 1);
    EXPECT_NE(java->NewStringUTF("first"), nullptr);
    EXPECT_EQ(java->NewStringUTF("second"), nullptr);
    EXPECT_EQ(jni.pendingException()->className, "java/lang/OutOfMemoryError");
    jni.catchException();
    EXPECT_NE(java->NewStringUTF("third"), nullptr);
    jni.failCall(FakeJni::Call::NewObjectArray);
    EXPECT_EQ(java->NewObjectArray(1, stringClass(jni), nullptr), nullptr);
    jni.catchException();
    jni.failCall(FakeJni::Call::FindClass);
    EXPECT_EQ(stringClass(jni), nullptr);
    EXPECT_EQ(jni.pendingException()->className, "java/lang/NoClassDefFoundError");
}

TEST(FakeJni, KeepsAnArrayElementWhoseReferenceIsDeleted) {
    FakeJni jni;
    JNIEnv* java = jni.environment();
    const jstring element = java->NewStringUTF("kept");
    const jobjectArray array = java->NewObjectArray(1, stringClass(jni), element);
    EXPECT_EQ(jni.liveReferences(), 3U) << "string, class and array";
    java->DeleteLocalRef(element);
    EXPECT_EQ(jni.liveReferences(), 2U);
    EXPECT_THAT(jni.elementsOf(array), ElementsAre("kept"));
    EXPECT_EQ(jni.elementClassOf(array), "java/lang/String");
}

class FakeJniDeathTest : public testing::Test {
protected:
    FakeJni jni;
    JNIEnv* java = jni.environment();
};

TEST_F(FakeJniDeathTest, EndsACallMadeWhileAnExceptionIsPending) {
    jni.raise("java/lang/Error", "first");
    EXPECT_DEATH(java->NewStringUTF("x"), "NewStringUTF: not allowed while java/lang/Error");
}

TEST_F(FakeJniDeathTest, EndsTextThatIsNotModifiedUtf8) {
    EXPECT_DEATH(java->NewStringUTF("\xF0\x9F\x98\x80"), "NewStringUTF: .* not modified UTF-8");
}

TEST_F(FakeJniDeathTest, EndsACallThatIsNotMadeUp) {
    EXPECT_DEATH(java->GetVersion(), "slot 4 of JNINativeInterface_");
}

TEST_F(FakeJniDeathTest, EndsTheUseOfADeletedReference) {
    const jstring string = java->NewStringUTF("x");
    java->DeleteLocalRef(string);
    EXPECT_DEATH(java->GetStringLength(string), "has been deleted");
}

TEST_F(FakeJniDeathTest, EndsACopyOfWhatIsNotInTheString) {
    const jstring string = java->NewStringUTF("\xC3\xA9");
    char characters[8];
    EXPECT_DEATH(java->GetStringUTFRegion(string, 0, 2, characters), "no such characters");
    EXPECT_DEATH(java->GetStringUTFRegion(string, 2, 0, characters), "no such characters");
    EXPECT_DEATH(java->GetStringUTFRegion(string, -1, 1, characters), "no such characters");
}

TEST_F(FakeJniDeathTest, EndsACallFromAnotherThread) {
    EXPECT_DEATH(std::thread([this] { java->ExceptionCheck(); }).join(), "another thread");
}

TEST(ModifiedUtf8, TellsLegalFromIllegal) {
    using test::isModifiedUtf8;
    for (const char* legal : {"", "plain", "\xC0\x80", "\xC3\xA9", "\xE4\xB8\xAD", "\xED\xA0\x80",
                              "\xED\xA0\xBD\xED\xB8\x80"})
        EXPECT_TRUE(isModifiedUtf8(legal)) << legal;
    for (const char* illegal : {"\x80", "\xC0", "\xC1\x81", "\xC3", "\xE4\xB8", "\xE0\x80\x80",
                                "\xF0\x9F\x98\x80", "\xFF"})
        EXPECT_FALSE(isModifiedUtf8(illegal)) << illegal;
    EXPECT_FALSE(isModifiedUtf8(std::string(1, '\0')));
}

} // namespace
