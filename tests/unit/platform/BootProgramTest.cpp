#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

#ifndef TEST_EMULATOR
#define TEST_EMULATOR
#endif

namespace {

namespace fs = std::filesystem;

/// A prefix whose libraries are in lib/multi/.
class BootProgram : public testing::Test {
protected:
    void SetUp() override {
        if (access("/proc/boot", F_OK) == 0)
            GTEST_SKIP() << "this system has a boot image of its own";
        unsetenv("PLATFORM_BOOT_DIR");
        fs::remove_all("/tmp/world");
        fs::create_directories("/tmp/world/prefix/lib/multi");
        fs::copy_file(PROBE, LIBRARY);
    }

    static void put(const std::string& program) {
        fs::create_directories(fs::path(program).parent_path());
        std::ofstream(program) << "here\n";
    }

    // The answer of a loaded library, which is closed afterwards.
    static std::string answer(const char* function, const std::string& path, void* library) {
        const auto ask =
            reinterpret_cast<void (*)(const char*, std::string*)>(dlsym(library, function));
        std::string result;
        ask(path.c_str(), &result);
        dlclose(library);
        return result;
    }

    static std::string located(const std::string& path, void* library) {
        return answer("locate", path, library);
    }

    static std::string placesOf(const std::string& path) {
        void* const handle = dlopen(LIBRARY, RTLD_NOW | RTLD_LOCAL);
        return handle ? answer("places", path, handle) : dlerror();
    }

    static std::string located(const std::string& path, const std::string& library = LIBRARY) {
        void* const handle = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
        return handle ? located(path, handle) : dlerror();
    }

    static constexpr const char* LIBRARY = "/tmp/world/prefix/lib/multi/libprobe.so";
    static constexpr const char* INSTALLED = "/tmp/world/prefix/libexec/platwifi/boot/pidin";
    static constexpr const char* BUILT = "/tmp/world/prefix/lib/boot/pidin";
};

TEST_F(BootProgram, IsInTheInstalledFolder) {
    put(INSTALLED);
    EXPECT_EQ(located("/proc/boot/pidin"), INSTALLED);
}

TEST_F(BootProgram, IsInTheFolderOfTheBuildIfItIsThere) {
    put(INSTALLED);
    put(BUILT);
    EXPECT_EQ(located("/proc/boot/pidin"), BUILT);
}

TEST_F(BootProgram, IsNotInAFolderThatOnlyHasTheNameOfTheBuilds) {
    put(INSTALLED);
    put("/tmp/world/prefix/lib/boot/vmlinuz");
    EXPECT_EQ(located("/proc/boot/pidin"), INSTALLED);
}

TEST_F(BootProgram, IsExpectedInTheInstalledFolderWhenItIsMissing) {
    EXPECT_EQ(located("/proc/boot/pidin"), INSTALLED);
}

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

TEST_F(BootProgram, OfAnotherFolderKeepsItsPath) {
    put(INSTALLED);
    EXPECT_EQ(located("/bin/pidin"), "/bin/pidin");
}

// CMD-3
TEST_F(BootProgram, IsLookedForInThreePlaces) {
    EXPECT_EQ(placesOf("/proc/boot/pidin"),
              std::string("/proc/boot/pidin ") + BUILT + " " + INSTALLED + " ");
    EXPECT_EQ(placesOf("/bin/pidin"), "/bin/pidin ");
    setenv("PLATFORM_BOOT_DIR", "/tmp/world/empty", 1);
    EXPECT_EQ(placesOf("/proc/boot/pidin"), "/tmp/world/empty/pidin ");
    unsetenv("PLATFORM_BOOT_DIR");
}

TEST_F(BootProgram, IsInTheFolderOfTheEnvironmentEvenIfItIsMissing) {
    put(INSTALLED);
    setenv("PLATFORM_BOOT_DIR", "/tmp/world/empty", 1);
    EXPECT_EQ(located("/proc/boot/pidin"), "/tmp/world/empty/pidin");
    unsetenv("PLATFORM_BOOT_DIR");
}

} // namespace
