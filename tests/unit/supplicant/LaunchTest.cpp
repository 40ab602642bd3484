#include "supplicant/ChildProcess.h"
#include "supplicant/WifiUtil.h"

#include "ClientOperations.h"
#include "RealTime.h"
#include "support/Checkpoint.h"
#include "support/Files.h"
#include "support/Leftovers.h"
#include "support/ReplacedDescriptor.h"
#include "support/SignalAction.h"
#include "support/StandIn.h"
#include "support/ThreadState.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using platwifi::runChild;
using test::Arguments;
using test::CLIENT;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr const char* LAUNCH_RESULT = "/tmp/launch_result_test";

std::string resultText() {
    return test::contentOf(LAUNCH_RESULT);
}

class Launch : public testing::Test {
protected:
    ~Launch() override { std::remove(LAUNCH_RESULT); }

    bool run(const char* command = "status", const char* interfaceArg = "-iwlan0",
             const char* arg1 = nullptr, const char* arg2 = nullptr, const char* arg3 = nullptr) {
        return util.launchProcess(CLIENT, command, interfaceArg, arg1, arg2, arg3, LAUNCH_RESULT);
    }

    test::StandIn standIn;
    WifiUtil util;
};

// CMD-7
TEST_F(Launch, PutsTheInterfaceOptionFirstAndDropsArgumentsByTheRulesForNulls) {
    standIn.on({"*"});
    EXPECT_TRUE(run("c", "-iwlan0", "1", "2", "3"));
    EXPECT_TRUE(run("c", nullptr, "1", "2", "3"));
    EXPECT_TRUE(run(nullptr, "-iwlan0", "1", "2", "3"));
    EXPECT_TRUE(run("c", "-iwlan0", nullptr, "2", "3"));
    EXPECT_TRUE(run("c", "-iwlan0", "1", nullptr, "3"));
    EXPECT_TRUE(run("c", "-iwlan0", "1", "2", nullptr));
    EXPECT_TRUE(run(nullptr, nullptr));
    EXPECT_THAT(standIn.calls(),
                ElementsAre(Arguments{CLIENT, "-iwlan0", "c", "1", "2", "3"},
                            Arguments{CLIENT, "c", "1", "2", "3"}, Arguments{CLIENT, "-iwlan0"},
                            Arguments{CLIENT, "-iwlan0", "c"},
                            Arguments{CLIENT, "-iwlan0", "c", "1", "3"},
                            Arguments{CLIENT, "-iwlan0", "c", "1", "2"}, Arguments{CLIENT}));
}

TEST_F(Launch, PassesArgumentsUnchanged) {
    standIn.on({"*"});
    const std::string odd = " a  b\t$HOME `id` ; rm *\n\"'\\ \xE9\xF0\x9F\x93\xB6";
    EXPECT_TRUE(run("set_network", "-iwlan0", "0", "ssid", odd.c_str()));
    EXPECT_EQ(standIn.calls()[0].back(), odd);
}

// CMD-11
TEST_F(Launch, FailsWithoutAChildForMoreArgumentsThanAListHolds) {
    standIn.on({"*"});
    PlatformMutex mutex;
    PlatformUtil::createMutex(&mutex);
    EXPECT_FALSE(runChild(mutex, {CLIENT, "1", "2", "3", "4", "5", "6"}, "1", LAUNCH_RESULT));
    EXPECT_TRUE(standIn.calls().empty());
    EXPECT_TRUE(runChild(mutex, {CLIENT, "1", "2", "3", "4", "5"}, "1", LAUNCH_RESULT));
    EXPECT_THAT(standIn.calls(), ElementsAre(Arguments{CLIENT, "1", "2", "3", "4", "5"}));
    PlatformUtil::destroyMutex(&mutex);
}

TEST_F(Launch, CollectsBothOutputs) {
    standIn.on({"*"}).prints("one\n").printsError("two\n").prints("three\n");
    EXPECT_TRUE(run());
    EXPECT_EQ(resultText(), "one\ntwo\nthree\n");
    struct stat facts {};
    ASSERT_EQ(stat(LAUNCH_RESULT, &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, mode_t{0440});
}

TEST_F(Launch, EmptiesTheResultFileFirst) {
    standIn.on({"*"}).prints("a much longer text\n").then().prints("short\n");
    EXPECT_TRUE(run());
    EXPECT_TRUE(run());
    EXPECT_EQ(resultText(), "short\n");
}

TEST_F(Launch, SucceedsOnlyWithExitStatusZero) {
    standIn.on({"*"}).prints("FAIL\n").then().exits(1).then().exits(254).then().exits(255);
    EXPECT_TRUE(run()) << "though the client refused";
    EXPECT_FALSE(run());
    EXPECT_FALSE(run());
    EXPECT_FALSE(run());
    for (const int signal : {SIGTERM, SIGKILL, SIGSEGV, SIGPIPE}) {
        standIn.reset();
        standIn.on({"*"}).prints("OK\n").diesBy(signal);
        EXPECT_FALSE(run()) << signal;
    }
}

std::size_t clientSockets() {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/tmp"))
        count += entry.path().string().find("/tmp/wpa_ctrl_") == 0 ? 1U : 0U;
    return count;
}

// CMD-10
TEST_F(Launch, RemovesTheSocketOfAKilledClient) {
    standIn.on({"*"})
        .leaves("/tmp/wpa_ctrl_%d-1")
        .diesBy(SIGKILL)
        .then()
        .leaves("/tmp/wpa_ctrl_%d-1");
    EXPECT_FALSE(run());
    EXPECT_EQ(clientSockets(), 0U);
    EXPECT_TRUE(run());
    EXPECT_EQ(clientSockets(), 1U) << "a client that exits removes its own socket";
    EXPECT_EQ(std::system("rm /tmp/wpa_ctrl_*"), 0);
}

TEST_F(Launch, FailsWithoutAPathAtOnce) {
    EXPECT_FALSE(
        util.launchProcess(nullptr, "c", nullptr, nullptr, nullptr, nullptr, LAUNCH_RESULT));
    EXPECT_FALSE(std::filesystem::exists(LAUNCH_RESULT)) << "the result file is not made";
}

// CMD-9
TEST_F(Launch, FailsWithoutAResultFileAndStaysUsable) {
    standIn.on({"*"});
    EXPECT_FALSE(util.launchProcess(CLIENT, "c", nullptr, nullptr, nullptr, nullptr, nullptr));
    EXPECT_FALSE(util.launchProcess(CLIENT, "c", nullptr, nullptr, nullptr, nullptr, "/no/file"));
    EXPECT_TRUE(standIn.calls().empty()) << "no child is started";
    std::thread([this] { EXPECT_TRUE(run()) << "from another thread too"; }).join();
}

TEST_F(Launch, FailsWhenTheClientCannotBeStarted) {
    const std::string client = standIn.folder() + "/wpa_cli";
    std::filesystem::remove(client);
    EXPECT_FALSE(run()) << "missing";
    std::ofstream(client) << "not a program";
    EXPECT_FALSE(run()) << "not executable";
    std::filesystem::permissions(client, std::filesystem::perms::owner_all);
    EXPECT_FALSE(run()) << "executable, but no program";
    std::filesystem::remove(client);
    std::filesystem::create_directory(client);
    EXPECT_FALSE(run()) << "a folder";
    std::thread([this] { EXPECT_FALSE(run()) << "from another thread too"; }).join();
}

/// Sets the action of SIGCHLD during its lifetime.
struct ChildSignal : test::SignalAction {
    explicit ChildSignal(void (*handler)(int), int flags = 0)
        : SignalAction(SIGCHLD, handler, flags) {}

    static bool isIgnored() {
        struct sigaction action {};
        sigaction(SIGCHLD, nullptr, &action);
        return action.sa_handler == SIG_IGN;
    }
};

void ignoreSignal(int) {}

// CMD-4
TEST_F(Launch, DetectsFailureWhereTheSystemReapsItsChildren) {
    const struct {
        void (*handler)(int);
        int flags;
    } rows[] = {{SIG_IGN, 0}, {SIG_DFL, SA_NOCLDWAIT}, {ignoreSignal, SA_NOCLDWAIT}};
    for (const auto& row : rows) {
        const ChildSignal signal(row.handler, row.flags);
        const test::Leftovers before = test::Leftovers::now();
        standIn.reset();
        standIn.on({"*"}).printsFacts().then().exits(3).then().diesBy(SIGKILL);
        testing::internal::CaptureStderr();
        EXPECT_TRUE(run());
        EXPECT_THAT(resultText(), HasSubstr("descriptors 0 1 2\n"));
        EXPECT_FALSE(run()) << "exit status 3";
        EXPECT_FALSE(run()) << "killed";
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        std::remove(LAUNCH_RESULT);
        EXPECT_TRUE(test::Leftovers::now() == before);
        EXPECT_EQ(ChildSignal::isIgnored(), row.handler == SIG_IGN) << "unchanged";
    }
}

TEST_F(Launch, FailsWhereTheSystemReapsItsChildrenAndThereIsNoClient) {
    const ChildSignal signal(SIG_IGN);
    std::filesystem::remove(standIn.folder() + "/wpa_cli");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run());
    testing::internal::GetCapturedStderr();
}

TEST_F(Launch, RemovesTheSocketOfAClientWhereTheSystemReapsItsChildren) {
    const ChildSignal signal(SIG_IGN);
    standIn.on({"*"}).leaves("/tmp/wpa_ctrl_%d-1").diesBy(SIGKILL);
    EXPECT_FALSE(run());
    EXPECT_EQ(clientSockets(), 0U);
}

std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code gone;
    for (const auto& entry : std::filesystem::directory_iterator(folder, gone))
        names.push_back(entry.path().filename());
    return names;
}

// The intermediate process may outlive this program and must not keep its sockets and pipes open.
TEST_F(Launch, LeavesTheIntermediateProcessOnlyItsPipe) {
    const ChildSignal signal(SIG_IGN);
    test::Checkpoint checkpoint("/tmp/checkpoint");
    standIn.on({"*"}).pausesAt(checkpoint.path());
    std::atomic<int> thread{0};
    std::thread running([&] {
        thread = test::ownThread();
        EXPECT_TRUE(run());
    });
    checkpoint.awaitArrival();
    int between = 0;
    std::ifstream("/proc/self/task/" + std::to_string(thread) + "/children") >> between;
    const std::string folder = "/proc/" + std::to_string(between) + "/fd";
    std::vector<std::string> open = namesIn(folder);
    while (open.size() > 1)
        open = namesIn(folder);
    EXPECT_THAT(open, ElementsAre("0"));
    checkpoint.letGo();
    running.join();
}

// CMD-5
TEST_F(Launch, ReportsALostStatusOnce) {
    test::Checkpoint checkpoint("/tmp/checkpoint");
    standIn.on({"*"}).pausesAt(checkpoint.path());
    const auto runTwice = [&] {
        bool succeeded = false;
        for (int i = 0; i < 2; ++i) {
            std::thread running([&] { succeeded = run() || succeeded; });
            checkpoint.awaitArrival();
            const ChildSignal signal(SIG_IGN); // too late for an intermediate process
            checkpoint.letGo();
            running.join();
        }
        std::_Exit(succeeded ? 1 : 0);
    };
    EXPECT_EXIT(runTwice(), testing::ExitedWithCode(0),
                testing::MatchesRegex("platwifi: the exit status of a client was lost, [^\n]*\n"));
}

TEST_F(Launch, FailsForAnArgumentThatTheSystemRefuses) {
    standIn.on({"*"});
    const std::string huge(4 << 20, 'x');
    EXPECT_FALSE(run("set_network", "-iwlan0", "0", "ssid", huge.c_str()));
    EXPECT_TRUE(run());
}

TEST_F(Launch, PassesNoOtherDescriptorToTheChild) {
    const int leaky = open("/dev/null", O_RDONLY); // not close-on-exec
    const int high = fcntl(leaky, F_DUPFD, 200);
    standIn.on({"*"}).printsFacts();
    EXPECT_TRUE(run());
    EXPECT_THAT(resultText(), HasSubstr("descriptors 0 1 2\n"));
    close(leaky);
    close(high);
}

TEST_F(Launch, GivesTheChildNoInputIfTheCallerHasNone) {
    standIn.on({"*"}).printsFacts();
    const test::ReplacedDescriptor closed(STDIN_FILENO, -1);
    EXPECT_TRUE(run());
    EXPECT_THAT(resultText(), HasSubstr("descriptors 1 2\n"));
}

TEST_F(Launch, RunsChildrenOneAfterAnother) {
    standIn.on({"*"}).prints("OK\n");
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([this, i] {
            const std::string result = std::string(LAUNCH_RESULT) + std::to_string(i);
            for (int round = 0; round < 5; ++round)
                EXPECT_TRUE(util.launchProcess(CLIENT, "ping", nullptr, nullptr, nullptr, nullptr,
                                               result.c_str()));
            std::remove(result.c_str());
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(standIn.calls().size(), 40U);
}

TEST_F(Launch, DoesNotReapOtherChildren) {
    standIn.on({"*"});
    const pid_t other = fork();
    if (other == 0)
        _exit(7);
    siginfo_t info{};
    waitid(P_PID, static_cast<id_t>(other), &info, WEXITED | WNOWAIT);
    EXPECT_TRUE(run());
    std::filesystem::remove(standIn.folder() + "/wpa_cli");
    EXPECT_FALSE(run()) << "without a child of its own";
    int status = 0;
    EXPECT_EQ(waitpid(other, &status, 0), other) << "still there to be reaped";
    EXPECT_EQ(WEXITSTATUS(status), 7);
}

// CMD-16
TEST_F(Launch, StartsTheChildAtRaisedPriorityUpToTheHighestOfThePolicy) {
    const int highest = sched_get_priority_max(SCHED_RR);
    const std::pair<int, int> priorities[] = {{1, 21},
                                              {30, 50},
                                              {highest - 20, highest},
                                              {highest - 19, highest - 19},
                                              {highest, highest}};
    standIn.on({"*"}).printsFacts();
    const bool allowed = test::atEachPriority(priorities, [this](int raised) {
        EXPECT_TRUE(run());
        // The child inherits what its parent had when it was started.
        EXPECT_THAT(resultText(), HasSubstr("policy " + std::to_string(SCHED_RR) + "\npriority " +
                                            std::to_string(raised) + "\n"));
    });
    if (!allowed)
        GTEST_SKIP() << "this machine allows no real-time scheduling";
}

TEST_F(Launch, KeepsThePriorityWithoutRealTimeScheduling) {
    standIn.on({"*"}).printsFacts();
    EXPECT_TRUE(run());
    EXPECT_THAT(resultText(),
                HasSubstr("policy " + std::to_string(SCHED_OTHER) + "\npriority 0\n"));
}

} // namespace
