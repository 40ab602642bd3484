// The refresh thread. Each of its cycles takes up to three seconds.

#include "BlockView.h"
#include "Door.h"
#include "Peer.h"
#include "support/ThreadState.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace {

using test::BlockView;
using test::Door;
using test::Peer;

// The ids of the threads of this process that bear the name.
std::vector<int> refreshThreads() {
    std::vector<int> ids;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        if (name == "tWifiRefreshWat")
            ids.push_back(std::stoi(task.path().filename()));
    }
    return ids;
}

class RefreshThread : public testing::Test {
protected:
    void SetUp() override {
        Door::reset();
        watchdog = std::make_unique<WifiHostSettingsWatchdog>();
        watchdog->initialize();
    }

    // Also waits for the thread to be gone, so that the next test does not see it.
    void TearDown() override {
        watchdog.reset();
        while (!refreshThreads().empty())
            std::this_thread::yield();
        std::filesystem::remove_all(test::BLOCK_PATH);
    }

    static void raiseFromElsewhere() { BlockView().raise(SharedSignalBlock::NO_SENDER); }

    std::unique_ptr<WifiHostSettingsWatchdog> watchdog;
};

TEST_F(RefreshThread, RunsFromStartToStopUnderItsName) {
    EXPECT_TRUE(refreshThreads().empty());
    watchdog->start();
    EXPECT_EQ(refreshThreads().size(), 1U);
    watchdog->start();
    EXPECT_EQ(refreshThreads().size(), 1U) << "it ran already";
    watchdog->stop();
    watchdog->stop();
}

TEST_F(RefreshThread, RunsAgainAfterItWasStopped) {
    watchdog->start();
    watchdog->stop();
    raiseFromElsewhere();
    watchdog->start();
    Door::awaitCalls(1);
}

TEST_F(RefreshThread, KeepsTheWatchdogFromBeingInitialisedAgain) {
    watchdog->start();
    EXPECT_FALSE(watchdog->initialize());
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
    watchdog->stop();
    EXPECT_TRUE(watchdog->initialize());
    EXPECT_EQ(BlockView().numbers(), "0 none 2");
}

// A stop seen by the new thread would end it before it reloads; a save would put this thread's own id
// under the signal, which it then leaves alone.
TEST_F(RefreshThread, ForgetsSignalsFromBeforeItsStart) {
    watchdog->sendStopRefreshThreadSignal();
    watchdog->sendSaveSettingsSignal();
    raiseFromElsewhere();
    watchdog->start();
    Door::awaitCalls(1);
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
}

TEST_F(RefreshThread, TellsTheOthersInItsOwnNameThatThisProcessHasSaved) {
    watchdog->start();
    const std::string id = std::to_string(refreshThreads().at(0));
    watchdog->sendSaveSettingsSignal();
    const BlockView block;
    while (!block.isPending())
        std::this_thread::yield();
    EXPECT_EQ(block.numbers(), "1 " + id + " 1");
    watchdog->stop();
    EXPECT_EQ(Door::calls(), 0);
    EXPECT_TRUE(block.isPending());
}

TEST_F(RefreshThread, PicksUpASaveThatComesWhileItReloads) {
    const BlockView block;
    Door::during([this] { watchdog->sendSaveSettingsSignal(); });
    watchdog->start();
    const std::string id = std::to_string(refreshThreads().at(0));
    raiseFromElsewhere();
    while (block.numbers() != "1 " + id + " 1")
        std::this_thread::yield();
    EXPECT_EQ(Door::calls(), 1);
}

TEST_F(RefreshThread, OfAnotherProcessReloadsAfterASave) {
    Peer other;
    other.ask("initialize");
    other.ask("start");
    watchdog->start();
    watchdog->sendSaveSettingsSignal();
    other.ask("await-reloads");
    EXPECT_FALSE(BlockView().isPending());
    other.ask("stop");
    EXPECT_EQ(other.ask("reloads"), "1");
    watchdog->stop();
    EXPECT_EQ(Door::calls(), 0) << "its own signal";
}

TEST_F(RefreshThread, AsksAgainForAReloadThatWasNotPossible) {
    Door::refuse(1);
    raiseFromElsewhere();
    watchdog->start();
    Door::awaitCalls(2);
    watchdog->stop();
    EXPECT_EQ(Door::calls(), 2) << "not a third time";
}

TEST_F(RefreshThread, IsWaitedForUntilItHasLeft) {
    std::promise<void> letGo;
    auto gate = letGo.get_future().share();
    Door::during([gate] { gate.wait(); });
    raiseFromElsewhere();
    watchdog->start();
    Door::awaitCalls(1);
    std::promise<int> id;
    auto stopped = std::async(std::launch::async, [&] {
        id.set_value(PlatformUtil::threadId());
        watchdog->stop();
    });
    const int stopper = id.get_future().get();
    while (!test::isAsleep(stopper))
        std::this_thread::yield();
    EXPECT_EQ(stopped.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
    letGo.set_value();
    stopped.get();
}

TEST_F(RefreshThread, MayBeStoppedAndItsWatchdogDestroyedRightAfterItsStart) {
    for (int round = 0; round < 3; ++round) {
        watchdog->start();
        watchdog.reset();
        SetUp();
    }
}

TEST_F(RefreshThread, MayStopItself) {
    Door::during([this] {
        watchdog->stop();
        watchdog->stop();
    });
    raiseFromElsewhere();
    watchdog->start();
    Door::awaitCalls(1);
    watchdog.reset(); // waits for it nevertheless
}

TEST_F(RefreshThread, MayDestroyItsOwnWatchdog) {
    std::promise<void> over;
    Door::during([&] {
        watchdog->stop();
        watchdog.reset();
        over.set_value();
    });
    raiseFromElsewhere();
    watchdog->start();
    over.get_future().wait();
    while (!refreshThreads().empty())
        std::this_thread::yield();
    EXPECT_FALSE(test::blockHasName());
    EXPECT_EQ(Door::calls(), 1);
}

TEST_F(RefreshThread, RunsWithoutABlock) {
    watchdog->wifiShmemDestroy();
    mkdir(test::BLOCK_PATH, 0700);
    EXPECT_TRUE(watchdog->initialize());
    watchdog->start();
    watchdog->sendSaveSettingsSignal();
    watchdog->stop();
    EXPECT_EQ(Door::calls(), 0);
}

} // namespace
