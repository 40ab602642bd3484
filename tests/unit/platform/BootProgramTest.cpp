#include "BootProgram.h"

namespace {

using test::BootProgram;

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
