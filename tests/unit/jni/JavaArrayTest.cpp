#include "jni/JavaArray.h"

#include "jni/NativeCall.h"
#include "supplicant/ReplyLines.h"
#include "support/FakeJni.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

using platwifi::newJavaArray;
using test::FakeJni;

namespace {

TEST(JavaArray, HoldsTheEntries) {
    FakeJni java;
    const char* const entries[] = {"one", "two", ""};
    EXPECT_EQ(java.elementsOf(newJavaArray(java.environment(), entries, 3)),
              (FakeJni::Elements{"one", "two", ""}));
}

TEST(JavaArray, HoldsAnEmptyTextForANullEntry) {
    FakeJni java;
    const char* const entries[] = {nullptr, "two", nullptr};
    EXPECT_EQ(java.elementsOf(newJavaArray(java.environment(), entries, 3)),
              (FakeJni::Elements{"", "two", ""}));
}

TEST(JavaArray, MayBeEmpty) {
    FakeJni java;
    EXPECT_EQ(java.elementsOf(newJavaArray(java.environment(), nullptr, 0)), FakeJni::Elements{});
}

TEST(JavaArray, IsMadeForStrings) {
    FakeJni java;
    EXPECT_EQ(java.elementClassOf(newJavaArray(java.environment(), nullptr, 0)),
              "java/lang/String");
}

TEST(JavaArray, CountsBeyondAByte) {
    FakeJni java;
    const std::vector<const char*> entries(1000, "x");
    EXPECT_EQ(java.elementsOf(newJavaArray(java.environment(), entries.data(), 1000)),
              FakeJni::Elements(1000, "x"));
    EXPECT_LE(java.liveReferences(), 16U) << "what every virtual machine has room for";
}

TEST(JavaArray, TakesAnyBytes) {
    FakeJni java;
    const char* const entries[] = {"\xF0\x9F\x93\xB6", "\xE9t\xE9"};
    EXPECT_EQ(java.elementsOf(newJavaArray(java.environment(), entries, 2)),
              (FakeJni::Elements{"\xED\xA0\xBD\xED\xB3\xB6", "\xED\xB3\xA9t\xED\xB3\xA9"}));
}

TEST(JavaArray, IsNullWithoutMemory) {
    const FakeJni::Call calls[] = {FakeJni::Call::FindClass, FakeJni::Call::NewStringUTF,
                                   FakeJni::Call::NewObjectArray};
    const char* const entries[] = {"one", "two"};
    for (const FakeJni::Call call : calls) {
        FakeJni java;
        java.failCall(call);
        EXPECT_EQ(newJavaArray(java.environment(), entries, 2), nullptr);
        EXPECT_TRUE(java.pendingException()) << "the virtual machine's own";
    }
    for (int made = 1; made <= 2; ++made) {
        FakeJni java;
        java.failCall(FakeJni::Call::NewStringUTF, made);
        EXPECT_EQ(newJavaArray(java.environment(), entries, 2), nullptr);
        EXPECT_TRUE(java.pendingException());
    }
}

TEST(JavaArray, LosesNoLineWhenAnExceptionPassesThrough) {
    FakeJni java;
    EXPECT_THROW(
        {
            const platwifi::NativeCall call(java.environment(), java.javaString("wlan0"));
            platwifi::ReplyLines lines(4);
            lines.data()[0] = new char[6];
            std::memcpy(lines.data()[0], "wlan0", 6);
            lines.count = 1;
            throw std::runtime_error("below");
        },
        std::runtime_error);
    EXPECT_EQ(java.heldCharacters(), 0U);
}

} // namespace
