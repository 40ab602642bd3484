// The block shared by processes, without refresh threads.

#include "BlockView.h"
#include "Peer.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <sys/stat.h>

namespace {

using test::BlockView;
using test::Peer;

TEST(SignalBlock, HasItsFieldsInTheirOrder) {
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

TEST(SignalBlock, IsZeroOutsideOfItsFields) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    const BlockView block;
    const auto* const room = reinterpret_cast<const unsigned char*>(&block->conditionSlot);
    for (std::size_t i = sizeof(platform::SharedCondition); i < sizeof(pthread_cond_t); ++i)
        EXPECT_EQ(room[i], 0) << i;
}

TEST(SignalBlock, HasItsSizeAndTheModeMinusTheUmask) {
    for (const mode_t mask : {0U, 0027U, 0170U}) {
        const mode_t before = umask(mask);
        WifiHostSettingsWatchdog watchdog;
        watchdog.initialize();
        umask(before);
        struct stat status {};
        ASSERT_EQ(stat(test::BLOCK_PATH, &status), 0);
        EXPECT_EQ(status.st_size, static_cast<off_t>(sizeof(SharedSignalBlock)));
        EXPECT_EQ(status.st_mode & 07777U, 0777U & ~mask);
    }
}

TEST(SignalBlock, HoldsTheSenderOfTheLastSignal) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    const BlockView block;
    block.raise(5);
    block.raise(7);
    EXPECT_EQ(block.numbers(), "1 7 1");
    EXPECT_EQ(watchdog.checkForRefreshSignal(0), -1);
    EXPECT_EQ(block.numbers(), "0 7 1") << "the sender stays when the signal is taken";
}

// PEER-11
TEST(SignalBlock, HasARecursiveBlockMutexAndAPlainSignalMutex) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    const BlockView block;
    EXPECT_EQ(block->lock(), 0);
    EXPECT_EQ(PlatformUtil::tryLockMutex(&block->blockMutex), 0) << "recursive";
    block->unlock();
    block->unlock();
    EXPECT_EQ(block->lockSignal(), 0);
    EXPECT_EQ(PlatformUtil::tryLockMutex(&block->signalMutex), EBUSY) << "not recursive";
    block->unlockSignal();
}

TEST(SignalBlock, IsCreatedByTheFirstAndJoinedByTheOthers) {
    WifiHostSettingsWatchdog first;
    first.initialize();
    Peer second;
    EXPECT_EQ(second.ask("initialize"), "1");
    EXPECT_EQ(second.ask("creator"), "0");
    EXPECT_EQ(BlockView().numbers(), "0 none 2");
    Peer third;
    EXPECT_EQ(third.ask("initialize"), "1");
    EXPECT_EQ(third.ask("creator"), "0");
    EXPECT_EQ(BlockView().numbers(), "0 none 3");
    EXPECT_TRUE(first.isCreator());
}

TEST(SignalBlock, IsUnlockedAfterASecondInitialisation) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    watchdog.initialize();
    Peer peer;
    EXPECT_EQ(peer.ask("initialize"), "1");
    EXPECT_EQ(peer.ask("lock"), "0");
    EXPECT_EQ(peer.ask("unlock"), "0");
    EXPECT_EQ(BlockView().numbers(), "0 none 3");
}

TEST(SignalBlock, WakesAnotherProcess) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    Peer peer;
    peer.ask("initialize");
    peer.beginWait();
    watchdog.sendRefreshSettingsSignal();
    EXPECT_EQ(peer.answer(), "-1");
    EXPECT_FALSE(BlockView().isPending());
}

// PEER-2
TEST(SignalBlock, GivesASignalToOneProcessOnly) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    Peer peers[3];
    for (Peer& peer : peers) {
        peer.ask("initialize");
        peer.beginWait();
    }
    watchdog.sendRefreshSettingsSignal();
    int seen = 0;
    for (Peer& peer : peers)
        seen += peer.answer() == "-1" ? 1 : 0;
    EXPECT_EQ(seen, 1);
}

// PEER-3
TEST(SignalBlock, DoesNotGiveASignalToAThreadWithTheSendersId) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    Peer peer;
    peer.ask("initialize");
    BlockView().raise(static_cast<std::uint32_t>(std::stoul(peer.ask("id"))));
    EXPECT_EQ(peer.ask("check"), "0");
    EXPECT_TRUE(BlockView().isPending());
    EXPECT_EQ(watchdog.checkForRefreshSignal(0), -1);
}

// Whether the first to leave is the creator or another user.
// PEER-6
TEST(SignalBlock, LosesItsNameWithTheFirstToLeaveAndIsKeptByTheOthers) {
    for (const bool creatorLeaves : {true, false}) {
        SCOPED_TRACE(creatorLeaves);
        Peer creator;
        Peer other;
        Peer third;
        for (Peer* peer : {&creator, &other, &third})
            peer->ask("initialize");
        const BlockView old;
        Peer& leaver = creatorLeaves ? creator : other;
        Peer& stayer = creatorLeaves ? other : creator;
        leaver.ask("destroy");
        EXPECT_FALSE(test::blockHasName());
        EXPECT_EQ(old.numbers(), "0 none 2");

        WifiHostSettingsWatchdog fresh;
        fresh.initialize();
        EXPECT_TRUE(fresh.isCreator());
        EXPECT_EQ(BlockView().numbers(), "0 none 1");
        stayer.ask("refresh");
        EXPECT_EQ(fresh.checkForRefreshSignal(0), 0) << "it does not share the old block";
        EXPECT_EQ(third.ask("check"), "-1") << "they still share theirs";

        stayer.ask("destroy");
        third.ask("destroy");
        EXPECT_EQ(old.numbers(), "0 none 0") << "ended by its last user";
        EXPECT_FALSE(test::blockHasName()) << "whichever block has the name";
    }
}

TEST(SignalBlock, IsNotJoinedAfterItsLastUserHasLeft) {
    WifiHostSettingsWatchdog last;
    last.initialize();
    const BlockView old;
    last.wifiShmemLock();
    Peer peer;
    peer.send("initialize");
    peer.awaitMapping();
    last.wifiShmemDestroy();
    EXPECT_EQ(peer.answer(), "1");
    EXPECT_EQ(peer.ask("creator"), "1");
    EXPECT_EQ(old.numbers(), "0 none 0");
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
}

} // namespace
