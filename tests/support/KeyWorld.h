#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <sys/types.h>

namespace test {

/// What one call of Crypt gave.
struct Outcome {
    int status = -1;
    std::optional<std::string> text; ///< no value where the result is null
    std::string errorId;             ///< "" where no error was reported
    std::string message;
};

Outcome encrypted(const std::string& plain);
Outcome decrypted(const std::string& enciphered);

/// Starts each test without a key file, and with PLATFORM_KEY_FILE naming one in a folder that is
/// not there yet. Skips where this build has no cipher.
class KeyWorld : public testing::Test {
protected:
    static const std::string FOLDER;
    static const std::string KEY_FILE;

    void SetUp() override;
    void TearDown() override;

    /// Puts this key in place, closed to others.
    static void putKey(const std::string& bytes);
    static void removeKey();
    static void setKeyMode(mode_t mode);
};

} // namespace test
