// The block shared by processes, without refresh threads.

#include "Peer.h"
#include "RefreshThread.h"

#include <cstddef>
#include <cstring>
#include <sys/stat.h>

namespace {

using test::BlockView;
using test::JoinedPeer;
using test::Peer;

class SignalBlock : public test::InitializedWatchdog {};

TEST_F(SignalBlock, HasItsFieldsInTheirOrder) {
    struct Layout {
        pthread_mutex_t blockMutex;
        pthread_mutex_t signalMutex;
        pthread_cond_t refreshCondition;
        std::uint32_t refreshPending;
        std::uint32_t refreshSender;
        std::uint32_t attachCount;
    };
    EXPECT_EQ(sizeof(SharedSignalBlock), sizeof(Layout));
    EXPECT_EQ(offsetof(SharedSignalBlock, blockMutex), offsetof(Layout, blockMutex));
    EXPECT_EQ(offsetof(SharedSignalBlock, signalMutex), offsetof(Layout, signalMutex));
    EXPECT_EQ(offsetof(SharedSignalBlock, refreshCondition), offsetof(Layout, refreshCondition));
    EXPECT_EQ(offsetof(SharedSignalBlock, refreshPending), offsetof(Layout, refreshPending));
    EXPECT_EQ(offsetof(SharedSignalBlock, refreshSender), offsetof(Layout, refreshSender));
    EXPECT_EQ(offsetof(SharedSignalBlock, attachCount), offsetof(Layout, attachCount));
}

TEST_F(SignalBlock, IsZeroOutsideOfItsFields) {
    const BlockView block;
    const auto* const room = reinterpret_cast<const unsigned char*>(&block->conditionSlot);
    for (std::size_t i = sizeof(platform::SharedCondition); i < sizeof(pthread_cond_t); ++i)
        EXPECT_EQ(room[i], 0) << i;
}

TEST_F(SignalBlock, HasItsSizeAndTheModeMinusTheUmask) {
    for (const mode_t mask : {0U, 0027U, 0170U}) {
        watchdog.wifiShmemDestroy();
        const mode_t before = umask(mask);
        watchdog.initialize();
        umask(before);
        struct stat status {};
        ASSERT_EQ(stat(test::BLOCK_PATH, &status), 0);
        EXPECT_EQ(status.st_size, static_cast<off_t>(sizeof(SharedSignalBlock)));
        EXPECT_EQ(status.st_mode & 07777U, 0777U & ~mask);
    }
}

TEST_F(SignalBlock, HoldsTheSenderOfTheLastSignal) {
    const BlockView block;
    block.raise(5);
    block.raise(7);
    EXPECT_EQ(block.numbers(), "1 7 1");
    EXPECT_EQ(watchdog.checkForRefreshSignal(0), -1);
    EXPECT_EQ(block.numbers(), "0 7 1") << "the sender stays when the signal is taken";
}

// PEER-11
TEST_F(SignalBlock, HasARecursiveBlockMutexAndAPlainSignalMutex) {
    const BlockView block;
    EXPECT_EQ(block->lock(), 0);
    EXPECT_EQ(PlatformUtil::tryLockMutex(&block->blockMutex), 0) << "recursive";
    block->unlock();
    block->unlock();
    EXPECT_EQ(block->lockSignal(), 0);
    EXPECT_EQ(PlatformUtil::tryLockMutex(&block->signalMutex), EBUSY) << "not recursive";
    block->unlockSignal();
}

TEST_F(SignalBlock, IsCreatedByTheFirstAndJoinedByTheOthers) {
    EXPECT_TRUE(watchdog.isCreator());
    JoinedPeer peers[2];
    for (Peer& peer : peers)
        EXPECT_EQ(peer.ask("creator"), "0");
    EXPECT_EQ(BlockView().numbers(), "0 none 3");
}

TEST_F(SignalBlock, IsUnlockedAfterASecondInitialisation) {
    watchdog.initialize();
    JoinedPeer peer;
    EXPECT_EQ(peer.ask("lock"), "0");
    EXPECT_EQ(peer.ask("unlock"), "0");
    EXPECT_EQ(BlockView().numbers(), "0 none 3");
}

TEST_F(SignalBlock, WakesAnotherProcess) {
    JoinedPeer peer;
    peer.beginWait();
    watchdog.sendRefreshSettingsSignal();
    EXPECT_EQ(peer.answer(), "-1");
    EXPECT_FALSE(BlockView().isPending());
}

// PEER-2
TEST_F(SignalBlock, GivesASignalToOneProcessOnly) {
    JoinedPeer peers[3];
    for (Peer& peer : peers)
        peer.beginWait();
    watchdog.sendRefreshSettingsSignal();
    int seen = 0;
    for (Peer& peer : peers)
        seen += peer.answer() == "-1" ? 1 : 0;
    EXPECT_EQ(seen, 1);
}

// PEER-3
TEST_F(SignalBlock, DoesNotGiveASignalToAThreadWithTheSendersId) {
    JoinedPeer peer;
    BlockView().raise(static_cast<std::uint32_t>(std::stoul(peer.ask("id"))));
    EXPECT_EQ(peer.ask("check"), "0");
    EXPECT_TRUE(BlockView().isPending());
    EXPECT_EQ(watchdog.checkForRefreshSignal(0), -1);
}

// PEER-6
TEST_F(SignalBlock, LosesItsNameWhenAUserLeavesAndIsKeptByTheOthers) {
    for (const bool creatorLeaves : {true, false}) {
        SCOPED_TRACE(creatorLeaves);
        watchdog.wifiShmemDestroy();
        JoinedPeer creator;
        JoinedPeer other;
        JoinedPeer third;
        const BlockView old;
        Peer& leaving = creatorLeaves ? creator : other;
        Peer& staying = creatorLeaves ? other : creator;
        leaving.ask("destroy");
        EXPECT_FALSE(test::blockHasName());
        EXPECT_EQ(old.numbers(), "0 none 2");

        watchdog.initialize();
        EXPECT_TRUE(watchdog.isCreator());
        EXPECT_EQ(BlockView().numbers(), "0 none 1");
        staying.ask("refresh");
        EXPECT_EQ(watchdog.checkForRefreshSignal(0), 0) << "it does not share the old block";
        EXPECT_EQ(third.ask("check"), "-1") << "they still share theirs";

        staying.ask("destroy");
        third.ask("destroy");
        EXPECT_EQ(old.numbers(), "0 none 0") << "ended by its last user";
        EXPECT_FALSE(test::blockHasName()) << "whichever block has the name";
    }
}

TEST_F(SignalBlock, IsNotJoinedAfterItsLastUserHasLeft) {
    const BlockView old;
    watchdog.wifiShmemLock();
    Peer peer;
    peer.send("initialize");
    peer.awaitMapping();
    watchdog.wifiShmemDestroy();
    EXPECT_EQ(peer.answer(), "1");
    EXPECT_EQ(peer.ask("creator"), "1");
    EXPECT_EQ(old.numbers(), "0 none 0");
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
}

} // namespace
