#include "jni/Secrets.h"

#include "jni/NativeCall.h"
#include "support/FakeJni.h"
#include "support/KeyWorld.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace platwifi;

namespace {

class Secrets : public test::KeyWorld {
protected:
    // The deciphered text: "(null)" for null, "(invalid)" for one that does not decipher.
    std::string deciphered(const char* value) {
        JavaExceptionHandler errors(java.environment());
        const DecipheredText plain(&errors, value);
        if (!plain)
            return "(invalid)";
        return plain.text() ? plain.text() : "(null)";
    }

    test::FakeJni java;
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
    EXPECT_EQ(deciphered(enciphered.c_str()), "correct horse battery");
    EXPECT_FALSE(java.pendingException());
}

TEST_F(Secrets, ThatAreEmptyStandForThemselvesWithoutTheCipher) {
    putKey("too short"); // the cipher would fail
    EXPECT_EQ(deciphered(""), "");
    EXPECT_EQ(deciphered(nullptr), "(null)");
    EXPECT_FALSE(java.pendingException());
}

// TEXT-3
TEST_F(Secrets, ThatDoNotDecipherAreInvalid) {
    EXPECT_EQ(deciphered("no enciphered text"), "(invalid)");
    ASSERT_TRUE(java.pendingException()) << "with the cause pending in Java";
    EXPECT_EQ(java.pendingException()->message.find("no enciphered text"), std::string::npos);
    java.catchException();
}

TEST_F(Secrets, AreFreedWhenAnExceptionPassesThrough) {
    const std::string enciphered = *test::encrypted("secret").text;
    EXPECT_THROW(
        {
            NativeCall call(java.environment(), java.javaString(enciphered));
            const DecipheredText plain(call.errors(), call.iface());
            EXPECT_STREQ(plain.text(), "secret");
            throw std::runtime_error("below");
        },
        std::runtime_error);
    EXPECT_EQ(java.heldCharacters(), 0U);
    EXPECT_FALSE(java.pendingException());
}

} // namespace
