// The cipher on a system without libcrypto: this program's dlopen() finds no library.

#include "platform/Crypt.h"

#include <gtest/gtest.h>

extern "C" __attribute__((visibility("default"))) void* dlopen(const char* /*name*/,
                                                               int /*flags*/) {
    return nullptr;
}

namespace {

class MissingCipher : public testing::Test {
protected:
    static std::string errorOf(int (*operation)(ErrorHandler*, const char*, char**) noexcept,
                               const char* text) {
        ErrorHandler errors;
        char unused = '\0';
        char* result = &unused;
        EXPECT_NE(operation(&errors, text, &result), 0);
        EXPECT_EQ(result, nullptr);
        const MessageBundle* const error = errors.savedError();
        return error ? error->text() : "";
    }
};

TEST_F(MissingCipher, IsReported) {
    for (const auto operation : {Crypt::encryptForThisProcess, Crypt::decrypt}) {
        const std::string error = errorOf(operation, "process1:abcd");
        EXPECT_NE(error.find("libcrypto.so."), std::string::npos) << error;
        EXPECT_NE(error.find("; install OpenSSL"), std::string::npos) << error;
    }
}

TEST_F(MissingCipher, IsReportedAtEachCall) {
    EXPECT_EQ(errorOf(Crypt::encryptForThisProcess, "a"),
              errorOf(Crypt::encryptForThisProcess, "b"));
}

} // namespace
