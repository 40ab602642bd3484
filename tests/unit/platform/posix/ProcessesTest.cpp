// The process lister is the system's own.

#include "../Pidin.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace {

using test::lineOf;
using test::Listing;
using test::pidin;

TEST(Pidin, IsNotCutByTheWidthOfATerminal) {
    setenv("COLUMNS", "20", 1);
    const std::string line = lineOf(pidin({"arg"}), getpid());
    unsetenv("COLUMNS");
    EXPECT_NE(line.find("platform_test"), std::string::npos) << line;
}

TEST(Pidin, StartsNoProgramOfTheCallersFolders) {
    std::filesystem::create_directory("/tmp/folder");
    std::ofstream("/tmp/folder/ps") << "#!/bin/sh\necho another\n";
    std::filesystem::permissions("/tmp/folder/ps", std::filesystem::perms::owner_all);
    const std::string before = std::getenv("PATH");
    setenv("PATH", ("/tmp/folder:" + before).c_str(), 1);
    const Listing listing = pidin({"arg"});
    setenv("PATH", before.c_str(), 1);
    EXPECT_NE(lineOf(listing, getpid()), "");
}

} // namespace
