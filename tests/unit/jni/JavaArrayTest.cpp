#include "jni/JavaArray.h"

#include "support/FakeJni.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

using platwifi::newJavaArray;
using test::FakeJni;

namespace {

TEST(JavaArray, HoldsTheEntriesAndAnEmptyTextForNull) {
    FakeJni java;
    const char* const entries[] = {"one", nullptr, "", "\xF0\x9F\x93\xB6", "\xE9t\xE9", nullptr};
    const jobjectArray array = newJavaArray(java.environment(), entries, 6);
    EXPECT_EQ(java.elementsOf(array), (FakeJni::Elements{"one", "", "", "\xED\xA0\xBD\xED\xB3\xB6",
                                                         "\xED\xB3\xA9t\xED\xB3\xA9", ""}));
    EXPECT_EQ(java.elementClassOf(array), "java/lang/String");
}

TEST(JavaArray, HasAnyNumberOfEntriesAndFewReferences) {
    for (const std::size_t count : {0U, 1000U}) {
        FakeJni java;
        const std::vector<const char*> entries(count, "x");
        EXPECT_EQ(java.elementsOf(newJavaArray(java.environment(), entries.data(),
                                               static_cast<unsigned short>(count))),
                  FakeJni::Elements(count, "x"));
        EXPECT_LE(java.liveReferences(), 16U) << "what every virtual machine has room for";
    }
}

TEST(JavaArray, IsNullWithoutMemory) {
    const struct {
        FakeJni::Call call;
        int successes;
    } failures[] = {{FakeJni::Call::FindClass, 0},
                    {FakeJni::Call::NewObjectArray, 0},
                    {FakeJni::Call::NewStringUTF, 0},
                    {FakeJni::Call::NewStringUTF, 1},
                    {FakeJni::Call::NewStringUTF, 2}};
    const char* const entries[] = {"one", "two"};
    for (const auto& failure : failures) {
        FakeJni java;
        java.failCall(failure.call, failure.successes);
        EXPECT_EQ(newJavaArray(java.environment(), entries, 2), nullptr);
        EXPECT_TRUE(java.pendingException()) << "the virtual machine's own";
    }
}

} // namespace
