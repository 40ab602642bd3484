#include "supplicant/ResultFile.h"

#include "support/BlockedFile.h"
#include "support/Files.h"
#include "support/Leftovers.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <set>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

using namespace platwifi;
using platform::FileDescriptor;
using test::contentOf;

namespace {

constexpr const char* PREFIX = "/tmp/some_result_";

std::string ownPath() {
    return test::resultPath(PREFIX);
}

void write(const std::string& path, const std::string& text) {
    std::ofstream(path) << text;
}

struct stat factsOf(const std::string& path) {
    struct stat facts {};
    EXPECT_EQ(lstat(path.c_str(), &facts), 0) << path;
    return facts;
}

// CMD-8
TEST(ResultFileName, EndsWithTheThreadsId) {
    const ResultFile file(PREFIX);
    EXPECT_EQ(file.path(), ownPath());
    std::string other;
    std::thread([&other] { other = ResultFile(PREFIX).path(); }).join();
    EXPECT_NE(other, ownPath());
}

TEST(ResultFileName, IsCutAt127Characters) {
    const std::string prefix = "/tmp/" + std::string(200, 'p');
    const ResultFile file(prefix.c_str());
    EXPECT_EQ(file.path(), prefix.substr(0, 127));
}

// CMD-8
TEST(ResultFileEnd, RemovesTheFileUnlessItIsKept) {
    write(ownPath(), "x");
    { const ResultFile file(PREFIX); }
    EXPECT_TRUE(test::resultFiles().empty());

    write(ownPath(), "x");
    {
        ResultFile file(PREFIX);
        file.keep();
    }
    EXPECT_EQ(test::resultFiles(), std::vector<std::string>{ownPath()});
    std::remove(ownPath().c_str());
}

TEST(ResultFileReading, CutsLineFeedsAndLongLines) {
    const std::string full(127, 'a');
    const std::string over(128, 'b');
    const std::string far(300, 'c');
    write(ownPath(), "first\n\n" + full + "\n" + over + "\n" + far + "\nlast");
    ResultFile file(PREFIX);
    ASSERT_TRUE(file.open());
    const std::string expected[] = {"first",
                                    "",
                                    full,
                                    "",
                                    over.substr(0, 127),
                                    "b",
                                    far.substr(0, 127),
                                    far.substr(0, 127),
                                    far.substr(0, 46),
                                    "last"};
    ReplyLine line;
    for (const std::string& text : expected) {
        ASSERT_TRUE(line.readFrom(file));
        EXPECT_EQ(line.text, text);
    }
    EXPECT_FALSE(line.readFrom(file));
}

TEST(ResultFileReading, NeedsARegularFile) {
    ResultFile missing(PREFIX);
    EXPECT_FALSE(missing.open());
    ReplyLine line;
    EXPECT_FALSE(line.readFrom(missing)) << "nothing is read from a file that did not open";

    write("/tmp/target", "secret\n");
    ASSERT_EQ(symlink("/tmp/target", ownPath().c_str()), 0);
    EXPECT_FALSE(ResultFile(PREFIX).open()) << "a link";
    EXPECT_EQ(contentOf("/tmp/target"), "secret\n");

    ASSERT_EQ(mkfifo(ownPath().c_str(), 0600), 0);
    EXPECT_FALSE(ResultFile(PREFIX).open()) << "a pipe";
}

// CMD-8
TEST(ResultFileCreation, MakesAFileWithoutWritePermission) {
    const std::string path = ownPath();
    {
        const FileDescriptor file = createResultFile(path.c_str());
        ASSERT_TRUE(file.isOpen());
        EXPECT_EQ(fcntl(file.number(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
        EXPECT_EQ(fcntl(file.number(), F_GETFL) & O_ACCMODE, O_WRONLY);
    }
    EXPECT_EQ(factsOf(path).st_mode & 07777, mode_t{0440});
    std::remove(path.c_str());
}

TEST(ResultFileCreation, EmptiesAnExistingFile) {
    write(ownPath(), "old text");
    EXPECT_TRUE(createResultFile(ownPath().c_str()).isOpen());
    EXPECT_EQ(factsOf(ownPath()).st_size, 0);
    std::remove(ownPath().c_str());
}

// CMD-9
TEST(ResultFileCreation, RefusesWhatIsNotARegularFile) {
    write("/tmp/precious", "keep me");
    const std::string path = ownPath();

    ASSERT_EQ(symlink("/tmp/precious", path.c_str()), 0);
    EXPECT_FALSE(createResultFile(path.c_str()).isOpen()) << "a link";
    EXPECT_EQ(contentOf("/tmp/precious"), "keep me");
    std::remove(path.c_str());

    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(createResultFile(path.c_str()).isOpen()) << "a pipe without a reader";
    const FileDescriptor reader(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    EXPECT_FALSE(createResultFile(path.c_str()).isOpen()) << "a pipe with a reader";
    std::remove(path.c_str());

    ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    EXPECT_FALSE(createResultFile(path.c_str()).isOpen()) << "a folder";
    std::remove(path.c_str());

    EXPECT_FALSE(createResultFile("/nowhere/at/all").isOpen());
    EXPECT_FALSE(createResultFile("").isOpen());
}

TEST(ResultFileCreation, ReplacesAFileThatHasASecondName) {
    write("/tmp/precious", "keep me");
    const std::string path = ownPath();
    ASSERT_EQ(link("/tmp/precious", path.c_str()), 0);
    EXPECT_TRUE(createResultFile(path.c_str()).isOpen());
    EXPECT_EQ(contentOf("/tmp/precious"), "keep me");
    EXPECT_EQ(factsOf(path).st_nlink, nlink_t{1});
    std::remove(path.c_str());
}

// Runs the body in a process without root rights. Returns its result, the number of failed checks.
template <typename Body>
int asUnprivilegedUser(Body body) {
    constexpr uid_t UNPRIVILEGED = 65534;
    const pid_t child = fork();
    if (child == 0) {
        if (setgid(UNPRIVILEGED) != 0 || setuid(UNPRIVILEGED) != 0)
            _exit(100);
        _exit(body());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 101;
}

TEST(ResultFileCreation, ReplacesALeftoverThatItMayNotWrite) {
    const int failed = asUnprivilegedUser([] {
        const std::string path = ownPath();
        int failures = createResultFile(path.c_str()).isOpen() ? 0 : 1;
        const FileDescriptor again = createResultFile(path.c_str());
        failures += again.isOpen() ? 0 : 1;
        std::remove(path.c_str());
        return failures;
    });
    if (failed == 100)
        GTEST_SKIP() << "this user cannot become another one";
    EXPECT_EQ(failed, 0);
}

TEST(ResultFileCreation, ReplacesAFileOfAnotherUser) {
    const std::string path = ownPath();
    write(path, "planted");
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    if (chown(path.c_str(), 65534, 65534) != 0)
        GTEST_SKIP() << "this user cannot give files away";
    const ino_t planted = factsOf(path).st_ino;
    EXPECT_TRUE(createResultFile(path.c_str()).isOpen());
    EXPECT_NE(factsOf(path).st_ino, planted);
    EXPECT_EQ(factsOf(path).st_uid, geteuid());
    EXPECT_EQ(factsOf(path).st_mode & 07777, mode_t{0440});
    std::remove(path.c_str());
}

} // namespace
