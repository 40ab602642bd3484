#include "platform/UnnamedFile.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST(UnnamedFile, IsAnEmptyPrivateFileWithoutAName) {
    const platform::FileDescriptor file = platform::newUnnamedFile();
    ASSERT_TRUE(file.isOpen());
    struct stat status {};
    ASSERT_EQ(fstat(file.number(), &status), 0);
    EXPECT_EQ(status.st_size, 0);
    EXPECT_EQ(status.st_nlink, nlink_t{0});
    EXPECT_EQ(status.st_mode & 07777, mode_t{0600});
    for (const auto& entry : std::filesystem::directory_iterator("/tmp"))
        EXPECT_EQ(entry.path().string().find("platwifi_reply"), std::string::npos);
}

TEST(UnnamedFile, IsReadAndWrittenAndStaysInThisProcess) {
    const platform::FileDescriptor file = platform::newUnnamedFile();
    char byte = ' ';
    EXPECT_EQ(write(file.number(), "x", 1), 1);
    EXPECT_EQ(pread(file.number(), &byte, 1, 0), 1);
    EXPECT_EQ(byte, 'x');
    EXPECT_EQ(fcntl(file.number(), F_GETFD), FD_CLOEXEC);
}

} // namespace
