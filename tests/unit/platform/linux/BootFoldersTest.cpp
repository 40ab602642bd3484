// Linux tells from which file a library was loaded.

#include "../BootProgram.h"

#include <cstdio>
#include <vector>

#ifndef TEST_EMULATOR
#define TEST_EMULATOR
#endif

namespace {

namespace fs = std::filesystem;
using test::BootProgram;

TEST_F(BootProgram, IsFoundThroughALinkToTheLibrary) {
    put(INSTALLED);
    put("/tmp/world/elsewhere/deep/down/other");
    const std::string link = "/tmp/world/elsewhere/deep/down/liblink.so";
    fs::create_symlink(LIBRARY, link);
    EXPECT_EQ(located("/proc/boot/pidin", link), INSTALLED);
}

TEST_F(BootProgram, IsFoundThroughALinkToTheFolderOfTheLibrary) {
    put(INSTALLED);
    fs::create_directory_symlink("prefix/lib/multi", "/tmp/world/libraries");
    EXPECT_EQ(located("/proc/boot/pidin", "/tmp/world/libraries/libprobe.so"), INSTALLED);
}

TEST_F(BootProgram, MovesWithThePrefix) {
    put(INSTALLED);
    fs::rename("/tmp/world/prefix", "/tmp/world/moved");
    EXPECT_EQ(located("/proc/boot/pidin", "/tmp/world/moved/lib/multi/libprobe.so"),
              "/tmp/world/moved/libexec/platwifi/boot/pidin");
}

TEST_F(BootProgram, IsThePathItselfWhenTheLibrarysFileIsGone) {
    void* const handle = dlopen(LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_TRUE(handle) << dlerror();
    fs::remove_all("/tmp/world/prefix");
    EXPECT_EQ(located("/proc/boot/pidin", handle), "/proc/boot/pidin");
}

// The program is found through PATH, so that its first argument is no path.
TEST_F(BootProgram, IsFoundByAProgramThatContainsTheCode) {
    put(INSTALLED);
    fs::create_directories("/tmp/world/prefix/bin");
    fs::copy_file(OWNER, "/tmp/world/prefix/bin/owner");
    std::vector<std::string> words{TEST_EMULATOR "owner"};
    if (words.size() > 1) // an emulator does not look into PATH
        words.back() = "/tmp/world/prefix/bin/owner";
    std::string command = "cd / && PATH=/tmp/world/prefix/bin:$PATH";
    for (const std::string& word : words)
        command += " " + word;
    FILE* const owner = popen((command + " /proc/boot/pidin").c_str(), "r");
    ASSERT_TRUE(owner);
    char line[256] = {};
    EXPECT_TRUE(std::fgets(line, sizeof line, owner));
    EXPECT_EQ(pclose(owner), 0);
    EXPECT_EQ(line, INSTALLED + std::string("\n"));
}

} // namespace
