// Claims are locks of the process on a file of its user.

#include "platform/FolderClaim.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using platform::FolderClaim;

constexpr const char* FOLDER = "/tmp";

std::size_t openDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

// What another process sees.
bool othersSee(std::uint32_t number) {
    const pid_t other = fork();
    if (other == 0)
        _exit(FolderClaim(FOLDER, 20).sees(number) ? 1 : 0);
    int status = -1;
    EXPECT_EQ(waitpid(other, &status, 0), other);
    return WEXITSTATUS(status) == 1;
}

TEST(LockFile, IsOpenOnlyWhileThereAreClaims) {
    const std::size_t before = openDescriptors();
    {
        const FolderClaim first(FOLDER, 1);
        const FolderClaim second(FOLDER, 2);
        EXPECT_EQ(openDescriptors(), before + 3) << "the folder twice, and the file";
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST(LockFile, KeepsAClaimWhileAnotherObjectHasTheSame) {
    const FolderClaim claim(FOLDER, 10);
    { const FolderClaim second(FOLDER, 10); }
    { const FolderClaim other(FOLDER, 11); }
    EXPECT_TRUE(othersSee(10));
    EXPECT_FALSE(othersSee(11));
}

// As by a program that removes old files.
TEST(LockFile, IsMadeAgainWithItsClaimsWhenItWasRemoved) {
    const FolderClaim claim(FOLDER, 10);
    const std::string path = "/tmp/platwifi." + std::to_string(geteuid()) + ".lock";
    EXPECT_TRUE(std::filesystem::remove(path));
    const FolderClaim later(FOLDER, 11);
    EXPECT_TRUE(othersSee(10));
    EXPECT_TRUE(othersSee(11));
}

// The locks of a process are not those of a process that it forks.
TEST(LockFile, HasTheClaimsOfAForkedProcessItself) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const FolderClaim watcher(FOLDER, 20);
    pid_t other = -1;
    {
        const FolderClaim claim(FOLDER, 10);
        other = fork();
        if (other == 0) {
            const FolderClaim own(FOLDER, 10);
            static_cast<void>(!write(ready[1], "x", 1));
            for (;;)
                pause();
        }
        char byte = ' ';
        EXPECT_EQ(read(ready[0], &byte, 1), 1);
    }
    EXPECT_TRUE(watcher.sees(10));
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);
    EXPECT_FALSE(watcher.sees(10));
    close(ready[0]);
    close(ready[1]);
}

} // namespace
