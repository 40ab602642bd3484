// The life of the refresh thread.

#include "RefreshThread.h"

#include "support/Doing.h"
#include "support/ThreadState.h"

#include <future>
#include <sys/stat.h>

namespace {

using test::BlockView;
using test::Door;
using test::RefreshThread;
using test::refreshThreads;

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
    auto* const self = watchdog.get();
    Door::during([self] {
        self->stop();
        self->stop();
    });
    raiseFromElsewhere();
    watchdog->start();
    Door::awaitCalls(1);
    watchdog.reset(); // waits for it nevertheless
}

TEST_F(RefreshThread, IsWaitedForByTheDestructorAlsoWhenItHasStoppedItself) {
    auto* const self = watchdog.get();
    std::promise<void> stopped;
    std::promise<void> letGo;
    Door::during([&] {
        self->stop();
        stopped.set_value();
        letGo.get_future().wait();
    });
    raiseFromElsewhere();
    watchdog->start();
    stopped.get_future().wait();
    const test::Doing destroying([this] { watchdog.reset(); });
    destroying.awaitRest();
    EXPECT_FALSE(destroying.isDone());
    letGo.set_value();
}

TEST_F(RefreshThread, MayDestroyItsOwnWatchdog) {
    auto* const self = watchdog.release();
    std::promise<void> started;
    std::promise<void> over;
    Door::during([&] {
        started.get_future().wait();
        self->stop();
        delete self;
        over.set_value();
    });
    raiseFromElsewhere();
    self->start();
    started.set_value();
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
