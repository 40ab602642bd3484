#include "platform/FolderClaim.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using platform::FolderClaim;

constexpr const char* FOLDER = "/tmp";
constexpr std::uint32_t NUMBERS[] = {0, 1, 4711, 0x7ffffffd, FolderClaim::MAX_NUMBER};

TEST(FolderClaim, IsSeenByOthersDuringItsLifetime) {
    const FolderClaim watcher(FOLDER, 5);
    ASSERT_TRUE(watcher.isHeld());
    for (const std::uint32_t number : NUMBERS) {
        {
            const FolderClaim claim(FOLDER, number);
            EXPECT_TRUE(claim.isHeld()) << number;
            EXPECT_TRUE(watcher.sees(number));
        }
        EXPECT_FALSE(watcher.sees(number)) << number;
    }
}

TEST(FolderClaim, IsOnOneNumberOfOneFolder) {
    const FolderClaim claim(FOLDER, 10);
    const FolderClaim watcher(FOLDER, 20);
    EXPECT_FALSE(watcher.sees(9));
    EXPECT_TRUE(watcher.sees(10));
    EXPECT_FALSE(watcher.sees(11));
    EXPECT_FALSE(FolderClaim("/run", 20).sees(10)) << "another folder";
}

TEST(FolderClaim, DoesNotSeeItself) {
    const FolderClaim claim(FOLDER, 10);
    EXPECT_FALSE(claim.sees(10));
    const FolderClaim second(FOLDER, 10);
    EXPECT_TRUE(second.isHeld()) << "claims do not exclude each other";
    EXPECT_TRUE(claim.sees(10));
    EXPECT_TRUE(second.sees(10));
}

TEST(FolderClaim, DoesNotEndOtherClaimsOfTheProcess) {
    const FolderClaim claim(FOLDER, 10);
    const FolderClaim watcher(FOLDER, 20);
    { const FolderClaim second(FOLDER, 10); }
    EXPECT_TRUE(watcher.sees(10));
}

TEST(FolderClaim, EndsWithAProcessThatIsKilled) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t process = fork();
    if (process == 0) {
        const FolderClaim claim(FOLDER, 10);
        const char held = claim.isHeld() ? 'y' : 'n';
        static_cast<void>(!write(ready[1], &held, 1));
        for (;;)
            pause();
    }
    char held = ' ';
    ASSERT_EQ(read(ready[0], &held, 1), 1);
    EXPECT_EQ(held, 'y');
    const FolderClaim watcher(FOLDER, 20);
    EXPECT_TRUE(watcher.sees(10));
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    EXPECT_FALSE(watcher.sees(10));
    close(ready[0]);
    close(ready[1]);
}

TEST(FolderClaim, NeedsAFolder) {
    const FolderClaim claim("/nowhere", 10);
    EXPECT_FALSE(claim.isHeld());
    const FolderClaim other(FOLDER, 10);
    EXPECT_FALSE(claim.sees(10)) << "it has no claim of its own";
}

} // namespace
