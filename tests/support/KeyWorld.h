#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <sys/types.h>

namespace test {

/// The result of one call of Crypt.
struct Outcome {
    int status = -1;
    std::optional<std::string> text; ///< no value for a null result
    std::string errorId;             ///< "" when no error was reported
    std::string message;
};

Outcome encrypted(const std::string& plain);
Outcome encryptedForThisProcess(const std::string& plain);
Outcome decrypted(const std::string& enciphered);

/// Starts each test without a key file, and with PLATFORM_KEY_FILE set to a path in a folder that
/// does not exist yet. Skips the test when this build has no cipher.
class KeyWorld : public testing::Test {
protected:
    static const std::string FOLDER;
    static const std::string KEY_FILE;

    void SetUp() override;
    void TearDown() override;

    /// Writes a key file with mode 0600.
    static void putKey(const std::string& bytes);
    static void removeKey();
    static void setKeyMode(mode_t mode);
};

} // namespace test
