// How the refresh thread reacts to signals.

#include "Peer.h"
#include "RefreshThread.h"

#include <future>
#include <string>
#include <thread>

namespace {

using test::BlockView;
using test::JoinedPeer;
using test::RecordedReloads;
using test::RefreshThread;
using test::refreshThreads;

// An old stop signal would end the new thread before it reloads. An old save signal would make it
// the sender of the signal, which it would then not take.
TEST_F(RefreshThread, IgnoresSignalsFromBeforeItsStart) {
    watchdog->sendStopRefreshThreadSignal();
    watchdog->sendSaveSettingsSignal();
    raiseAsAnotherProcess();
    watchdog->start();
    RecordedReloads::awaitCalls(1);
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
}

TEST_F(RefreshThread, NotifiesPeersOfASaveWithItsOwnIdAsSender) {
    const BlockView block;
    std::promise<int> ownId;
    RecordedReloads::during([&ownId] { ownId.set_value(PlatformUtil::threadId()); });
    raiseAsAnotherProcess();
    watchdog->start();
    const std::string id = std::to_string(ownId.get_future().get());
    watchdog->sendSaveSettingsSignal();
    while (!block.isPending())
        std::this_thread::yield();
    EXPECT_EQ(block.numbers(), "1 " + id + " 1");
    watchdog->stop();
    EXPECT_EQ(RecordedReloads::calls(), 1) << "that of the other process";
    EXPECT_TRUE(block.isPending());
}

TEST_F(RefreshThread, HandlesASaveThatComesDuringAReload) {
    const BlockView block;
    auto* const self = watchdog.get();
    std::promise<int> ownId;
    RecordedReloads::during([self, &ownId] {
        ownId.set_value(PlatformUtil::threadId());
        self->sendSaveSettingsSignal();
    });
    watchdog->start();
    raiseAsAnotherProcess();
    const std::string id = std::to_string(ownId.get_future().get());
    while (block.numbers() != "1 " + id + " 1")
        std::this_thread::yield();
    EXPECT_EQ(RecordedReloads::calls(), 1);
}

// PEER-1
TEST_F(RefreshThread, OfAnotherProcessReloadsAfterASave) {
    JoinedPeer other;
    other.ask("start");
    watchdog->start();
    watchdog->sendSaveSettingsSignal();
    other.ask("await-reloads");
    EXPECT_FALSE(BlockView().isPending());
    other.ask("stop");
    EXPECT_EQ(other.ask("reloads"), "1");
    watchdog->stop();
    EXPECT_EQ(RecordedReloads::calls(), 0) << "its own signal";
}

// PEER-1
TEST_F(RefreshThread, TriesAFailedReloadAgain) {
    RecordedReloads::refuse(1);
    raiseAsAnotherProcess();
    watchdog->start();
    RecordedReloads::awaitCalls(2);
    watchdog->stop();
    EXPECT_EQ(RecordedReloads::calls(), 2) << "no third time";
}

} // namespace
