// What the refresh thread makes of signals.

#include "Peer.h"
#include "RefreshThread.h"

namespace {

using test::BlockView;
using test::Door;
using test::Peer;
using test::RefreshThread;
using test::refreshThreads;

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
    auto* const self = watchdog.get();
    Door::during([self] { self->sendSaveSettingsSignal(); });
    watchdog->start();
    const std::string id = std::to_string(refreshThreads().at(0));
    raiseFromElsewhere();
    while (block.numbers() != "1 " + id + " 1")
        std::this_thread::yield();
    EXPECT_EQ(Door::calls(), 1);
}

// PEER-1
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

// PEER-1
TEST_F(RefreshThread, AsksAgainForAReloadThatWasNotPossible) {
    Door::refuse(1);
    raiseFromElsewhere();
    watchdog->start();
    Door::awaitCalls(2);
    watchdog->stop();
    EXPECT_EQ(Door::calls(), 2) << "not a third time";
}

} // namespace
