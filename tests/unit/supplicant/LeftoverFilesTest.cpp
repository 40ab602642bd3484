// The removal of result files that ended processes have left.

#include "supplicant/LeftoverFiles.h"

#include "Paths.h"
#include "platform/FolderClaim.h"
#include "supplicant/ClientCommand.h"
#include "supplicant/ResultFile.h"
#include "supplicant/ResultTag.h"
#include "supplicant/WifiUtil.h"

#include "support/Checkpoint.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"
#include "support/TestTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace platwifi;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAreArray;

namespace {

constexpr const char* WLAN = "wlan0";
constexpr const char* A_TAG = "140737353996160";

std::string put(const std::string& path) {
    std::ofstream(path) << "left\n";
    return path;
}

class LeftoverFiles : public testing::Test {
protected:
    void SetUp() override {
        if (!platform::FolderClaim(paths::RESULT_FOLDER, 0).isHeld())
            GTEST_SKIP() << "this platform has no claims, and removes no leftover files";
    }
    ~LeftoverFiles() override {
        for (const std::string& file : test::resultFiles())
            std::filesystem::remove_all(file);
    }
};

TEST_F(LeftoverFiles, OfEveryCommandAreRemoved) {
    const char* const prefixes[] = {"wpa_cli_interface_result_",    "wpa_cli_list_result_",
                                    "wpa_cli_scan_results_result_", "wpa_cli_status_result_",
                                    "wpa_cli_scan_result_",         "wpa_cli_add_result_",
                                    "wpa_cli_set_network_result_",  "wpa_cli_enable_result_",
                                    "wpa_cli_get_network_result_",  "wpa_cli_connect_result_",
                                    "wpa_cli_disconnect_result_",   "wpa_cli_remove_result_",
                                    "wpa_cli_save_result_",         "wpa_cli_reconfigure_result_",
                                    "wpa_cli_reassociate_result_",  "wpa_custom_result_",
                                    "process_table_result_"};
    for (const char* prefix : prefixes) {
        put(std::string("/tmp/") + prefix + A_TAG);
        std::filesystem::permissions(put(std::string("/tmp/") + prefix + "7"),
                                     std::filesystem::perms::owner_read);
    }
    removeLeftoverFiles();
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

TEST(ResultTag, HasClaimsThatDifferFromThoseOfOthers) {
    const ResultTag first(A_TAG);
    const ResultTag second("17");
    const std::set<std::uint32_t> claims{first.useClaim(), first.removalClaim(), second.useClaim(),
                                         second.removalClaim()};
    EXPECT_THAT(claims, SizeIs(4));
}

TEST_F(LeftoverFiles, MatchWithTheirWholeName) {
    std::vector<std::string> others;
    for (const char* name :
         {"wpa_cli_status_result_", "wpa_cli_status_result_12x", "wpa_cli_status_result_-12",
          "wpa_cli_status_result_1 2", "wpa_cli_other_result_12", "my_wpa_cli_status_result_12",
          "wpa_cli_status_result_1234567890123456789012345678"})
        others.push_back(put(std::string("/tmp/") + name));
    removeLeftoverFiles();
    EXPECT_THAT(test::resultFiles(), UnorderedElementsAreArray(others));
}

TEST_F(LeftoverFiles, AreRegularFilesWithOneName) {
    const std::string folder = std::string("/tmp/wpa_cli_list_result_") + A_TAG;
    const std::string link = std::string("/tmp/wpa_cli_status_result_") + A_TAG;
    const std::string pipe = std::string("/tmp/wpa_cli_scan_result_") + A_TAG;
    const std::string second = std::string("/tmp/wpa_cli_add_result_") + A_TAG;
    put("/tmp/target");
    std::filesystem::create_directory(folder);
    std::filesystem::create_symlink("/tmp/target", link);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_hard_link("/tmp/target", second);
    removeLeftoverFiles();
    EXPECT_THAT(test::resultFiles(), UnorderedElementsAreArray({folder, link, pipe, second}));
    EXPECT_TRUE(std::filesystem::exists("/tmp/target"));
    std::filesystem::remove("/tmp/target");
}

TEST_F(LeftoverFiles, OfOtherUsersStay) {
    const std::string foreign = put(std::string("/tmp/wpa_cli_status_result_") + A_TAG);
    if (chown(foreign.c_str(), 65534, 65534) != 0)
        GTEST_SKIP() << "this user cannot give files away";
    removeLeftoverFiles();
    EXPECT_THAT(test::resultFiles(), ElementsAre(foreign));
}

// CMD-14
TEST_F(LeftoverFiles, StayWhileTheyAreInUse) {
    const ResultFile status(command::STATUS.resultPrefix);
    put(status.path());
    const std::string other = put(std::string(command::STATUS.resultPrefix) + A_TAG);
    std::thread([] { removeLeftoverFiles(); }).join();
    EXPECT_THAT(test::resultFiles(), ElementsAre(status.path()));
}

// A process with one thread that runs a command. `before` threads, which only wait, are started
// first, so that the thread ids of several such processes differ.
class CommandProcess {
public:
    CommandProcess(int before, const std::function<void(WifiUtil&)>& command) : m_id(fork()) {
        if (m_id == 0)
            run(before, command);
    }
    ~CommandProcess() { end(); }
    CommandProcess(const CommandProcess&) = delete;
    CommandProcess& operator=(const CommandProcess&) = delete;

    void end() {
        if (m_id > 0) {
            kill(m_id, SIGKILL);
            waitpid(m_id, nullptr, 0);
        }
        m_id = -1;
    }

private:
    [[noreturn]] static void run(int before, const std::function<void(WifiUtil&)>& command) {
        std::vector<std::thread> waiting;
        for (int i = 0; i < before; ++i)
            waiting.emplace_back([] {
                for (;;)
                    pause();
            });
        std::thread([&command] {
            WifiUtil util;
            command(util);
        }).join();
        std::_Exit(0);
    }

    pid_t m_id;
};

void askStatus(WifiUtil& util) {
    char* lines[1] = {};
    unsigned char count = 0;
    util.getCurrentNetworkStatus(WLAN, lines, 1, &count);
}

// CMD-14
TEST_F(LeftoverFiles, OfKilledProcessesAreRemovedAndThoseOfLivingOnesStay) {
    test::TestTime time;
    time.pausesEndWithTheChild();
    test::StandIn standIn;
    test::Checkpoint status("/tmp/status-checkpoint");
    test::Checkpoint table("/tmp/table-checkpoint");
    test::Checkpoint custom("/tmp/custom-checkpoint");
    standIn.on({"-iwlan0", "status"}).pausesAt(status.path());
    standIn.on({"-iwlan0", "arg"}).pausesAt(table.path());
    standIn.on({"-iwlan0", "custom", "0"}).pausesAt(custom.path());
    standIn.on({"interface"});

    CommandProcess first(0, askStatus);
    status.awaitArrival();
    CommandProcess second(1, [](WifiUtil& util) { util.isWifiEnabled(WLAN); });
    table.awaitArrival();
    const CommandProcess living(
        2, [](WifiUtil& util) { util.executeCustom(WLAN, 0, "custom", nullptr); });
    custom.awaitArrival();
    EXPECT_THAT(test::resultFiles(), SizeIs(3));
    first.end();
    second.end();

    EXPECT_NE(WifiUtil::getInstance(), nullptr);
    EXPECT_THAT(test::resultFiles(), ElementsAre(testing::StartsWith("/tmp/wpa_custom_result_")));

    put(std::string(command::STATUS.resultPrefix) + A_TAG);
    WifiUtil::unload();
    EXPECT_NE(WifiUtil::getInstance(), nullptr);
    EXPECT_THAT(test::resultFiles(), SizeIs(2)) << "a process removes leftovers only once";
    WifiUtil::unload();
    for (test::Checkpoint* checkpoint : {&status, &table, &custom})
        checkpoint->letGo();
}

// The removal of other files never takes the file of a thread that uses it.
TEST_F(LeftoverFiles, AreRemovedWhileCommandsRun) {
    std::atomic<bool> done{false};
    std::thread remover([&done] {
        while (!done)
            removeLeftoverFiles();
    });
    int lost = 0;
    for (int i = 0; i < 1000; ++i) {
        ResultFile result(command::STATUS.resultPrefix);
        const platform::FileDescriptor output = createResultFile(result.path());
        if (!output.isOpen() || write(output.number(), "x\n", 2) != 2)
            ++lost;
        std::this_thread::yield();
        ReplyLine line;
        if (!result.open() || !line.readFrom(result))
            ++lost;
        if (i % 2 == 0)
            result.keep(); // so that there is something to remove
    }
    done = true;
    remover.join();
    EXPECT_EQ(lost, 0);
}

TEST_F(LeftoverFiles, DelayACommandForALimitedTimeWhileTheyAreRemoved) {
    test::TestTime time;
    time.sleepsAreRecorded();
    { const ResultFile result(command::STATUS.resultPrefix); }
    EXPECT_THAT(time.events(), IsEmpty());
    const platform::FolderClaim removal(paths::RESULT_FOLDER, ResultTag().removalClaim());
    { const ResultFile result(command::STATUS.resultPrefix); }
    EXPECT_EQ(time.events(), std::vector<std::string>(500, "sleep 1"));
}

} // namespace
