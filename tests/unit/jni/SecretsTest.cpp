#include "jni/Secrets.h"

#include "jni/Frame.h"
#include "support/FakeJni.h"
#include "support/KeyWorld.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace platwifi;

namespace {

class Secrets : public test::KeyWorld {
protected:
    // What a setter was given: "(null)" for null.
    bool set(const char* value, bool result = true) {
        JavaExceptionHandler errors(java.environment());
        return setDeciphered(&errors, value, [&](const char* plain) {
            taken.push_back(plain ? plain : "(null)");
            return result;
        });
    }

    test::FakeJni java;
    std::vector<std::string> taken;
};

// TEXT-2
TEST_F(Secrets, ReachJavaEncipheredOnly) {
    JavaExceptionHandler errors(java.environment());
    jstring const given = newEncipheredString(java.environment(), &errors, "correct horse battery");
    ASSERT_NE(given, nullptr);
    const std::string enciphered = java.textOf(given);
    EXPECT_EQ(enciphered.find("correct"), std::string::npos);
    EXPECT_EQ(test::decrypted(enciphered).text, "correct horse battery");
    EXPECT_FALSE(java.pendingException());
}

TEST_F(Secrets, ThatAreUnsetReachJavaAsNull) {
    JavaExceptionHandler errors(java.environment());
    EXPECT_EQ(newEncipheredString(java.environment(), &errors, nullptr), nullptr);
    EXPECT_FALSE(java.pendingException());
    EXPECT_TRUE(java.stringsMade().empty());
}

TEST_F(Secrets, ThatCannotBeEncipheredReachJavaAsNullWithTheCausePending) {
    putKey("too short");
    JavaExceptionHandler errors(java.environment());
    EXPECT_EQ(newEncipheredString(java.environment(), &errors, "secret"), nullptr);
    ASSERT_TRUE(java.pendingException());
    EXPECT_EQ(java.pendingException()->message.find("secret"), std::string::npos);
    java.catchException();
}

TEST_F(Secrets, FromJavaAreDeciphered) {
    const std::string enciphered = *test::encrypted("correct horse battery").text;
    EXPECT_TRUE(set(enciphered.c_str()));
    EXPECT_EQ(taken, std::vector<std::string>{"correct horse battery"});
    EXPECT_FALSE(java.pendingException());
}

TEST_F(Secrets, FromJavaGiveTheSettersResult) {
    const std::string enciphered = *test::encrypted("x").text;
    EXPECT_FALSE(set(enciphered.c_str(), false));
    EXPECT_TRUE(set(enciphered.c_str(), true));
}

TEST_F(Secrets, ThatAreEmptyAreHandedOnWithoutTheCipher) {
    putKey("too short"); // the cipher would fail
    EXPECT_TRUE(set(""));
    EXPECT_TRUE(set(nullptr));
    EXPECT_EQ(taken, (std::vector<std::string>{"", "(null)"}));
    EXPECT_FALSE(java.pendingException());
}

// TEXT-3
TEST_F(Secrets, ThatDoNotDecipherAreNotTaken) {
    EXPECT_FALSE(set("no enciphered text"));
    EXPECT_TRUE(taken.empty());
    ASSERT_TRUE(java.pendingException()) << "with the cause pending in Java";
    EXPECT_EQ(java.pendingException()->message.find("no enciphered text"), std::string::npos);
    java.catchException();
}

TEST_F(Secrets, AreFreedWhenAnExceptionPassesThrough) {
    const std::string enciphered = *test::encrypted("secret").text;
    const auto throwing = [](ErrorHandler* errors, const char* value) -> bool {
        return setDeciphered(errors, value,
                             [](const char*) -> bool { throw std::runtime_error("below"); });
    };
    EXPECT_THROW(callNative(java.environment(), throwing, java.javaString(enciphered)),
                 std::runtime_error);
    EXPECT_EQ(java.heldCharacters(), 0U);
    EXPECT_FALSE(java.pendingException());
}

} // namespace
