#include "common/crypt/KeyPath.h"

#include "common/crypt/CryptError.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

constexpr uid_t ROOT = 0;
constexpr uid_t USER = 1000;

class KeyPath : public testing::Test {
protected:
    void SetUp() override {
        unsetenv("PLATFORM_KEY_FILE");
        unsetenv("XDG_STATE_HOME");
        setenv("HOME", "/home/someone", 1);
    }
};

using platform::keyPath;

TEST_F(KeyPath, ComesFromTheEnvironmentForEveryUser) {
    setenv("PLATFORM_KEY_FILE", "/etc/my.key", 1);
    setenv("XDG_STATE_HOME", "/state", 1);
    EXPECT_EQ(keyPath(ROOT), "/etc/my.key");
    EXPECT_EQ(keyPath(USER), "/etc/my.key");
}

TEST_F(KeyPath, IsThatOfTheSystemForRoot) {
    setenv("XDG_STATE_HOME", "/state", 1);
    EXPECT_EQ(keyPath(ROOT), "/var/lib/platform/crypt.key");
}

TEST_F(KeyPath, IsInTheUsersStateFolder) {
    EXPECT_EQ(keyPath(USER), "/home/someone/.local/state/platform/crypt.key");
    setenv("XDG_STATE_HOME", "/state", 1);
    EXPECT_EQ(keyPath(USER), "/state/platform/crypt.key");
}

TEST_F(KeyPath, DoesNotComeFromEmptyOrRelativeFolders) {
    setenv("PLATFORM_KEY_FILE", "", 1);
    for (const char* folder : {"", "state"}) {
        setenv("XDG_STATE_HOME", folder, 1);
        EXPECT_EQ(keyPath(USER), "/home/someone/.local/state/platform/crypt.key");
    }
}

TEST_F(KeyPath, IsUnknownWithoutAHome) {
    for (const char* home : {"", "home"}) {
        setenv("HOME", home, 1);
        try {
            keyPath(USER);
            ADD_FAILURE() << "a path without any variable";
        } catch (const platform::CryptError& error) {
            EXPECT_STREQ(error.id(), "crypt.key-path");
        }
    }
}

} // namespace
