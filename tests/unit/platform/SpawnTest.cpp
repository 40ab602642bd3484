#include "platform/Spawn.h"

#include "platform/FileDescriptor.h"
#include "support/Files.h"
#include "support/ReplacedDescriptor.h"
#include "support/SignalAction.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using test::ReplacedDescriptor;

namespace {

constexpr const char* OUTPUT = "/tmp/output";

#ifdef TEST_EMULATOR
constexpr bool EMULATED = true;
#else
constexpr bool EMULATED = false;
#endif

struct Finished {
    int status = -1; ///< exit status, or -1 where the child did not start or did not exit
    std::string output;
};

std::vector<const char*> pointersTo(const std::vector<std::string>& arguments) {
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments)
        pointers.push_back(argument.c_str());
    pointers.push_back(nullptr);
    return pointers;
}

int openOutput() {
    return open(OUTPUT, O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
}

Finished finish(int child) {
    Finished finished;
    int status = 0;
    if (child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status))
        finished.status = WEXITSTATUS(status);
    finished.output = test::contentOf(OUTPUT);
    return finished;
}

Finished run(const std::string& path, const std::vector<std::string>& arguments) {
    const int output = openOutput();
    const int child = Spawn::start(path.c_str(), pointersTo(arguments).data(), output);
    close(output);
    return finish(child);
}

TEST(Spawn, GivesTheChildNoOtherDescriptor) {
    const int low = open("/dev/null", O_RDONLY);
    const int high = dup2(low, 700);
    ASSERT_EQ(high, 700);
    const Finished ls = run("/bin/ls", {"ls", "/proc/self/fd"});
    EXPECT_EQ(ls.output, "0\n1\n2\n3\n") << "3 is the folder that ls lists";
    close(low);
    close(high);
}

TEST(Spawn, StartsWithoutStandardInput) {
    const int output = openOutput(); // before descriptor 0 is free
    int child = -1;
    {
        const ReplacedDescriptor closed(STDIN_FILENO, -1);
        child = Spawn::start("/bin/ls", pointersTo({"ls", "/proc/self/fd"}).data(), output);
    }
    close(output);
    EXPECT_EQ(finish(child).output, "0\n1\n2\n") << "0 is the folder that ls lists";
}

TEST(Spawn, PassesStandardInputOn) {
    std::ofstream("/tmp/input") << "from the parent";
    const platform::FileDescriptor input(open("/tmp/input", O_RDONLY | O_CLOEXEC));
    const ReplacedDescriptor replaced(STDIN_FILENO, input.number());
    fcntl(STDIN_FILENO, F_SETFD, FD_CLOEXEC);
    EXPECT_EQ(run("/bin/cat", {"cat"}).output, "from the parent");
}

struct SignalState {
    unsigned long long blocked = ~0ULL;
    unsigned long long ignored = ~0ULL;
};

// One bit for each signal, beginning with signal 1.
SignalState signalsOfAChild() {
    const Finished grep = run("/bin/grep", {"grep", "-E", "Sig(Blk|Ign)", "/proc/self/status"});
    SignalState state;
    std::istringstream lines(grep.output);
    std::string name;
    lines >> name >> std::hex >> state.blocked >> name >> state.ignored;
    return state;
}

// On a thread of its own, because it changes the signal mask.
TEST(Spawn, ClearsTheSignalMaskAndTheIgnoredSignals) {
    if (EMULATED)
        GTEST_SKIP() << "the emulator gives signals other numbers";
    constexpr unsigned long long C_LIBRARY = 3ULL << 31; // 32 and 33: its own, for threads only
    const test::SignalAction ignored(SIGPIPE, SIG_IGN);
    std::thread([] {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, nullptr);
        const SignalState child = signalsOfAChild();
        EXPECT_EQ(child.blocked, 0u);
        EXPECT_EQ(child.ignored & ~C_LIBRARY, 0u);
    }).join();
}

TEST(Spawn, PassesTheEnvironmentOn) {
    setenv("SPAWN_TEST_WORD", "two words", 1);
    const Finished child = run("/bin/sh", {"sh", "-c", "echo \"$SPAWN_TEST_WORD\""});
    unsetenv("SPAWN_TEST_WORD");
    EXPECT_EQ(child.output, "two words\n");
}

TEST(Spawn, PassesArgumentsUnchanged) {
    const std::vector<std::string> arguments{
        "printf", "[%s]", "a b", "", "it's", "\"q\" \\", "two\nlines", "$HOME; ls * &", "\xFF\x01"};
    EXPECT_EQ(run("/usr/bin/printf", arguments).output,
              "[a b][][it's][\"q\" \\][two\nlines][$HOME; ls * &][\xFF\x01]");
}

TEST(Spawn, LeavesTheNameOfTheProgramAsGiven) {
    const Finished cat = run("/bin/cat", {"any name", "/proc/self/cmdline"});
    EXPECT_EQ(cat.output, std::string("any name\0/proc/self/cmdline\0", 28));
}

TEST(Spawn, SendsBothOutputsToOneDescriptor) {
    const Finished child =
        run("/bin/sh", {"sh", "-c", "echo one; echo two >&2; echo three; exit 7"});
    EXPECT_EQ(child.output, "one\ntwo\nthree\n");
    EXPECT_EQ(child.status, 7);
}

TEST(Spawn, AcceptsAStandardDescriptorForOutput) {
    const platform::FileDescriptor file(openOutput());
    const ReplacedDescriptor replaced(STDERR_FILENO, file.number());
    const std::vector<std::string> arguments{"sh", "-c", "echo out; echo err >&2"};
    const int child = Spawn::start("/bin/sh", pointersTo(arguments).data(), STDERR_FILENO);
    EXPECT_EQ(finish(child).output, "out\nerr\n");
}

void expectFailure(int expectedError, const char* path, const char* const arguments[], int output) {
    errno = 0;
    EXPECT_EQ(Spawn::start(path, arguments, output), -1);
    EXPECT_EQ(errno, expectedError);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "there is no child";
    EXPECT_EQ(errno, ECHILD);
}

constexpr const char* NO_ERRORS = "the emulator forks, where posix_spawn() shares memory to learn "
                                  "of the child's error";

TEST(Spawn, SetsErrnoWhenItFails) {
    if (EMULATED)
        GTEST_SKIP() << NO_ERRORS;
    const char* const arguments[] = {"program", nullptr};
    std::ofstream("/tmp/plain") << "not a program";
    const int output = openOutput();
    expectFailure(ENOENT, "/no/such/program", arguments, output);
    expectFailure(ENOENT, "", arguments, output);
    expectFailure(EACCES, "/tmp/plain", arguments, output);
    expectFailure(EBADF, "/bin/true", arguments, 900);
    close(output);
}

TEST(Spawn, RefusesNullAndInvalidDescriptors) {
    const char* const arguments[] = {"program", nullptr};
    expectFailure(EINVAL, nullptr, arguments, STDOUT_FILENO);
    expectFailure(EINVAL, "/bin/true", nullptr, STDOUT_FILENO);
    expectFailure(EBADF, "/bin/true", arguments, -1);
}

class SpawnFromTheBootImage : public testing::Test {
protected:
    void SetUp() override {
        if (access("/proc/boot", F_OK) == 0)
            GTEST_SKIP() << "this system has a boot image of its own";
    }
    void TearDown() override { unsetenv("PLATFORM_BOOT_DIR"); }

    // A program that prints its own path.
    static void putProgram(const std::string& name) {
        std::filesystem::create_directories("/tmp/boot");
        std::ofstream("/tmp/boot/" + name) << "#!/bin/sh\necho \"$0 $*\"\n";
        std::filesystem::permissions("/tmp/boot/" + name, std::filesystem::perms::owner_all);
    }
};

TEST_F(SpawnFromTheBootImage, UsesTheFolderOfTheEnvironment) {
    putProgram("wpa_cli");
    setenv("PLATFORM_BOOT_DIR", "/tmp/boot", 1);
    const Finished child = run("/proc/boot/wpa_cli", {"/proc/boot/wpa_cli", "-iwlan0", "status"});
    EXPECT_EQ(child.output, "/tmp/boot/wpa_cli -iwlan0 status\n");
}

TEST_F(SpawnFromTheBootImage, LooksOnlyInTheFolderOfTheEnvironment) {
    if (EMULATED)
        GTEST_SKIP() << NO_ERRORS;
    std::filesystem::create_directories("/tmp/empty");
    setenv("PLATFORM_BOOT_DIR", "/tmp/empty", 1);
    const char* const arguments[] = {"pidin", nullptr};
    expectFailure(ENOENT, "/proc/boot/pidin", arguments, STDOUT_FILENO);
}

TEST_F(SpawnFromTheBootImage, UsesOtherPathsUnchanged) {
    putProgram("true");
    setenv("PLATFORM_BOOT_DIR", "/tmp/boot", 1);
    EXPECT_EQ(run("/bin/true", {"true"}).output, "");
}

// pidin lists this process.
TEST_F(SpawnFromTheBootImage, FallsBackToTheFolderOfTheBuild) {
    if (EMULATED)
        GTEST_SKIP() << "the system cannot start this build's programs without the emulator";
    const Finished pidin = run("/proc/boot/pidin", {"/proc/boot/pidin", "-iwlan0", "arg"});
    EXPECT_EQ(pidin.status, 0);
    EXPECT_NE(pidin.output.find(std::to_string(getpid()) + " "), std::string::npos);
}

} // namespace
