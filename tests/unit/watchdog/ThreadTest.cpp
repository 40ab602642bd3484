// The start and the end of the refresh thread.

#include "RefreshThread.h"

#include "support/Doing.h"

#include <future>
#include <sys/stat.h>

namespace {

using test::BlockView;
using test::RecordedReloads;
using test::RefreshThread;
using test::refreshThreads;

TEST_F(RefreshThread, RunsFromStartToStopUnderItsName) {
    EXPECT_TRUE(refreshThreads().empty());
    watchdog->start();
    EXPECT_EQ(refreshThreads().size(), 1U);
    watchdog->start();
    EXPECT_EQ(refreshThreads().size(), 1U) << "it was running already";
    watchdog->stop();
    watchdog->stop();
}

TEST_F(RefreshThread, RunsAgainAfterItWasStopped) {
    watchdog->start();
    watchdog->stop();
    raiseAsAnotherProcess();
    watchdog->start();
    RecordedReloads::awaitCalls(1);
}

TEST_F(RefreshThread, MakesASecondInitialisationFail) {
    watchdog->start();
    EXPECT_FALSE(watchdog->initialize());
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
    watchdog->stop();
    EXPECT_TRUE(watchdog->initialize());
    EXPECT_EQ(BlockView().numbers(), "0 none 2");
}

TEST_F(RefreshThread, IsWaitedForByStop) {
    std::promise<void> mayContinue;
    auto gate = mayContinue.get_future().share();
    RecordedReloads::during([gate] { gate.wait(); });
    raiseAsAnotherProcess();
    watchdog->start();
    RecordedReloads::awaitCalls(1);
    const test::Doing stopping([this] { watchdog->stop(); });
    stopping.awaitRest();
    EXPECT_FALSE(stopping.isDone());
    mayContinue.set_value();
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
    RecordedReloads::during([self] {
        self->stop();
        self->stop();
    });
    raiseAsAnotherProcess();
    watchdog->start();
    RecordedReloads::awaitCalls(1);
    watchdog.reset(); // waits for the thread all the same
}

TEST_F(RefreshThread, IsWaitedForByTheDestructorAlsoWhenItHasStoppedItself) {
    auto* const self = watchdog.get();
    std::promise<void> stopped;
    std::promise<void> mayContinue;
    RecordedReloads::during([&] {
        self->stop();
        stopped.set_value();
        mayContinue.get_future().wait();
    });
    raiseAsAnotherProcess();
    watchdog->start();
    stopped.get_future().wait();
    const test::Doing destroying([this] { watchdog.reset(); });
    destroying.awaitRest();
    EXPECT_FALSE(destroying.isDone());
    mayContinue.set_value();
}

TEST_F(RefreshThread, MayDestroyItsOwnWatchdog) {
    auto* const self = watchdog.release();
    std::promise<void> started;
    std::promise<void> over;
    RecordedReloads::during([&] {
        started.get_future().wait();
        self->stop();
        delete self;
        over.set_value();
    });
    raiseAsAnotherProcess();
    self->start();
    started.set_value();
    over.get_future().wait();
    test::awaitNoThreadNamed(test::REFRESH_THREAD);
    EXPECT_FALSE(test::blockHasName());
    EXPECT_EQ(RecordedReloads::calls(), 1);
}

TEST_F(RefreshThread, RunsWithoutABlock) {
    watchdog->wifiShmemDestroy();
    mkdir(test::BLOCK_PATH, 0700);
    EXPECT_TRUE(watchdog->initialize());
    watchdog->start();
    watchdog->sendSaveSettingsSignal();
    watchdog->stop();
    EXPECT_EQ(RecordedReloads::calls(), 0);
}

} // namespace
