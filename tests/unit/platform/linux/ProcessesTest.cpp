// Linux shows the arguments of a process as they are.

#include "../Pidin.h"
#include "support/Files.h"
#include "support/ReplacedDescriptor.h"

#include <gmock/gmock.h>

namespace {

using test::lineOf;
using test::Listing;
using test::pidin;
using test::run;

// posix_spawn() returns a moment before the system shows the arguments of the new program, and it
// may show none in between.
void awaitArguments(int process, const std::string& last) {
    const std::string path = "/proc/" + std::to_string(process) + "/cmdline";
    while (test::contentOf(path).find(last) == std::string::npos) {
    }
}

TEST(Pidin, KeepsAProcessOnOneLine) {
    int gate[2];
    ASSERT_EQ(pipe(gate), 0);
    const char* const arguments[] = {"cat", "-", "two\nlines", "\n9999999 forged", nullptr};
    const int output = open("/dev/null", O_WRONLY | O_CLOEXEC);
    int child = -1;
    {
        const test::ReplacedDescriptor replaced(STDIN_FILENO, gate[0]);
        child = Spawn::start("/bin/cat", arguments, output);
    }
    ASSERT_GT(child, 0);
    awaitArguments(child, "forged");
    const Listing listing = pidin({"arg"});
    for (const int descriptor : {gate[0], gate[1], output})
        close(descriptor);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(lineOf(listing, child), "cat - two lines  9999999 forged");
    EXPECT_EQ(lineOf(listing, 9999999), "");
}

// As when the process ends while it is read. Here a folder takes the place of the file that cannot
// be read.
TEST(Pidin, ListsAProcessWhoseArgumentsCannotBeRead) {
    const std::string own = "/proc/" + std::to_string(getpid());
    const std::string covered = "mount --bind " + own + "/mem " + own + "/cmdline && exec \"$@\"";
    const Listing listing =
        run({"env", "unshare", "--mount", "sh", "-c", covered.c_str(), "sh", TEST_EMULATOR PIDIN});
    EXPECT_EQ(listing.status, 0);
    EXPECT_THAT(listing.lines, testing::Contains(std::to_string(getpid()) + " "));
    EXPECT_GT(listing.lines.size(), 1U);
}

} // namespace
