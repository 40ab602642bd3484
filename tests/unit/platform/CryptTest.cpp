#include "platform/Crypt.h"

#include "support/KeyWorld.h"
#include "support/RandomText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <set>
#include <stdexcept>
#include <string>

namespace {

using test::decrypted;
using test::encrypted;
using test::KeyWorld;
using test::Outcome;
using testing::HasSubstr;
using testing::Not;

class CryptText : public KeyWorld {};

TEST_F(CryptText, RestoresASecret) {
    for (const char* secret :
         {"correct horse", "", "x", "\xC3\xA9\xF0\x9F\x98\x80", "\x01\xFF\xC3"}) {
        const Outcome enciphered = encrypted(secret);
        ASSERT_EQ(enciphered.status, 0) << enciphered.message;
        EXPECT_EQ(enciphered.errorId, "");
        const Outcome plain = decrypted(*enciphered.text);
        EXPECT_EQ(plain.status, 0) << plain.message;
        EXPECT_EQ(plain.text, secret);
    }
}

TEST_F(CryptText, RestoresRandomBytes) {
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i) {
        const std::string secret = test::randomBytes(random);
        EXPECT_EQ(decrypted(*encrypted(secret).text).text, secret);
    }
}

TEST_F(CryptText, MakesPrintableTextThatDiffersEachTime) {
    std::set<std::string> texts;
    for (int i = 0; i < 100; ++i) {
        const std::string text = *encrypted("the same secret").text;
        EXPECT_EQ(text.compare(0, 7, "crypt1:"), 0);
        for (const char c : text)
            EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(c)) || std::strchr(":+/=", c)) << c;
        EXPECT_THAT(text, Not(HasSubstr("secret")));
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), 100u);
}

TEST_F(CryptText, AcceptsSecretsUpToTheLimit) {
    const std::string longest(Crypt::MAXIMUM_LENGTH, 'x');
    EXPECT_EQ(decrypted(*encrypted(longest).text).text, longest);
    const Outcome tooLong = encrypted(longest + "x");
    EXPECT_EQ(tooLong.errorId, "crypt.too-long");
    EXPECT_FALSE(tooLong.text);
}

// The text was made by another implementation of the cipher, so the test also pins the format.
TEST_F(CryptText, ReadsTextOfEarlierBuilds) {
    putKey("0123456789abcdef0123456789ABCDEF");
    EXPECT_EQ(
        decrypted("crypt1:mLD4i99S+UQDFCU2R1hpeoucrb6LdTgnEdUHJht7v/CyVnS/N8z3nUrEIvccZjoek1zg8O4=")
            .text,
        "kept \xC3\xBC"
        "ber builds");
}

TEST_F(CryptText, RefusesATextWithAnyCharacterChanged) {
    const std::string text = *encrypted("a secret of some length").text;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string changed = text;
        changed[i] = changed[i] == 'A' ? 'B' : 'A';
        const Outcome plain = decrypted(changed);
        EXPECT_NE(plain.status, 0) << "character " << i;
        EXPECT_FALSE(plain.text) << "character " << i;
        EXPECT_THAT(plain.errorId, testing::AnyOf("crypt.damaged", "crypt.wrong-key"));
    }
}

TEST_F(CryptText, RefusesATextOfAnotherLength) {
    const std::string text = *encrypted("a secret").text;
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_EQ(decrypted(text.substr(0, length)).errorId, "crypt.damaged") << length;
    for (const char* more : {"A", "AAAA", "=", "====", " ", "\n", "\n\n\n\n"})
        EXPECT_EQ(decrypted(text + more).errorId, "crypt.damaged") << more;
    EXPECT_EQ(decrypted(" " + text).errorId, "crypt.damaged");
}

TEST_F(CryptText, RefusesOtherText) {
    encrypted("makes the key");
    for (const char* text :
         {"", "plain", "crypt", "crypt:", "crypt1", "crypt1:", "crypt1:AAAA",
          "crypt1:====", "crypt1:\xFF\xFF\xFF\xFF", "CRYPT1:AAAA", "cryptx:AAAA"})
        EXPECT_EQ(decrypted(text).errorId, "crypt.damaged") << text;
    EXPECT_EQ(decrypted("crypt1:" + std::string(3 << 20, 'A')).errorId, "crypt.damaged");
}

TEST_F(CryptText, ReportsATextOfAnotherVersion) {
    const std::string text = *encrypted("a secret").text;
    const Outcome plain = decrypted("crypt2:" + text.substr(7));
    EXPECT_EQ(plain.errorId, "crypt.other-version");
    EXPECT_EQ(decrypted("crypt12:AAAA").errorId, "crypt.other-version");
}

TEST_F(CryptText, ReportsATextOfAnotherKey) {
    const std::string text = *encrypted("a secret").text;
    removeKey();
    EXPECT_EQ(encrypted("makes a new key").status, 0);
    EXPECT_EQ(decrypted(text).errorId, "crypt.wrong-key");
}

TEST_F(CryptText, UsesAReplacedKeyAtOnce) {
    putKey("0123456789abcdef0123456789ABCDEF");
    const std::string first = *encrypted("one").text;
    putKey("another key of thirty-two bytes.");
    const std::string second = *encrypted("two").text;
    EXPECT_EQ(decrypted(second).text, "two");
    EXPECT_EQ(decrypted(first).errorId, "crypt.wrong-key");
    putKey("0123456789abcdef0123456789ABCDEF");
    EXPECT_EQ(decrypted(first).text, "one");
    EXPECT_EQ(decrypted(second).errorId, "crypt.wrong-key");
}

TEST_F(CryptText, RefusesNull) {
    ErrorHandler errors;
    char left = 'x';
    char* result = &left;
    EXPECT_NE(Crypt::encrypt(&errors, nullptr, &result), 0);
    EXPECT_EQ(result, nullptr);
    ASSERT_NE(errors.savedError(), nullptr);
    EXPECT_STREQ(errors.savedError()->id(), "crypt.null-input");
    result = &left;
    EXPECT_NE(Crypt::decrypt(&errors, nullptr, &result), 0);
    EXPECT_EQ(result, nullptr);
    EXPECT_NE(Crypt::encrypt(&errors, "x", nullptr), 0);
    EXPECT_NE(Crypt::decrypt(&errors, "x", nullptr), 0);
    EXPECT_STREQ(errors.savedError()->id(), "crypt.null-input");
}

TEST_F(CryptText, NeedsNoErrorHandler) {
    char* result = nullptr;
    ASSERT_EQ(Crypt::encrypt(nullptr, "x", &result), 0);
    delete[] result;
    EXPECT_NE(Crypt::decrypt(nullptr, "damaged", &result), 0);
    EXPECT_EQ(result, nullptr);
}

TEST_F(CryptText, FailsNormallyWithAHandlerThatThrows) {
    struct Thrower : ErrorHandler {
        using ErrorHandler::error;
        void error(MessageBundle*) override { throw std::runtime_error("no"); }
    } thrower;
    char* result = nullptr;
    EXPECT_NE(Crypt::decrypt(&thrower, "damaged", &result), 0);
}

TEST_F(CryptText, KeepsSecretsOutOfItsMessages) {
    const std::string secret = "Tr0ub4dor";
    putKey("0123456789abcdef0123456789ABCDEF");
    const std::string text = *encrypted(secret).text;
    std::string longSecret(Crypt::MAXIMUM_LENGTH, '.');
    setKeyMode(0644);
    for (const Outcome& failure : {encrypted(secret), encrypted(longSecret + secret),
                                   decrypted(text), decrypted(secret), decrypted(text + "A")}) {
        EXPECT_NE(failure.message, "");
        EXPECT_THAT(failure.message, Not(HasSubstr(secret)));
        EXPECT_THAT(failure.message, Not(HasSubstr("0123456789")));
        EXPECT_THAT(failure.message, Not(HasSubstr(text.substr(7, 8))));
    }
}

} // namespace
