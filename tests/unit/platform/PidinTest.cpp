#include "platform/Spawn.h"

#include "support/Files.h"
#include "support/ReplacedDescriptor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#ifndef TEST_EMULATOR
#define TEST_EMULATOR
#endif

namespace {

struct Listing {
    int status;
    std::vector<std::string> lines;
};

std::vector<std::string> linesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

Listing run(std::vector<const char*> command) {
    command.push_back(nullptr);
    const int output = open("/tmp/list", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const int child = Spawn::start("/usr/bin/env", command.data(), output);
    EXPECT_NE(child, -1) << std::strerror(errno);
    close(output);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child) << std::strerror(errno);
    EXPECT_TRUE(WIFEXITED(status)) << status;
    return {WEXITSTATUS(status), linesOf("/tmp/list")};
}

Listing pidin(const std::vector<const char*>& arguments) {
    std::vector<const char*> command{"env", TEST_EMULATOR PIDIN};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run(command);
}

// The line of the process with this id, without the id; "" where there is none.
std::string lineOf(const Listing& listing, int id) {
    const std::string start = std::to_string(id) + " ";
    for (const std::string& line : listing.lines) {
        if (line.compare(0, start.size(), start) == 0)
            return line.substr(start.size());
    }
    return "";
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string ownArguments() {
    std::string text = test::contentOf("/proc/self/cmdline");
    text.pop_back();
    std::replace(text.begin(), text.end(), '\0', ' ');
    return text;
}

TEST(Pidin, ListsThisProcessWithItsArguments) {
    const Listing listing = pidin({"-iwlan0", "arg"});
    EXPECT_EQ(listing.status, 0);
    const std::string own = ownArguments();
    EXPECT_FALSE(own.empty());
    EXPECT_TRUE(endsWith(lineOf(listing, getpid()), own)) << lineOf(listing, getpid());
}

TEST(Pidin, NeedsNoArguments) {
    const Listing listing = pidin({});
    EXPECT_EQ(listing.status, 0);
    EXPECT_NE(lineOf(listing, getpid()), "");
}

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

TEST(Pidin, RefusesUnknownArguments) {
    for (const char* argument : {"-x", "--help", "args", ""}) {
        const Listing listing = pidin({argument});
        EXPECT_EQ(listing.status, 2) << argument;
        ASSERT_EQ(listing.lines.size(), 1u);
        EXPECT_EQ(listing.lines[0], "usage: pidin [-iINTERFACE] [arg]");
    }
}

} // namespace
