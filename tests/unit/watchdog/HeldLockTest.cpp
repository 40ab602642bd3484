// A lock of the block is not released: its holder is stopped, or the memory names a thread that
// does not exist as the holder.

#include "Peer.h"
#include "RefreshThread.h"

#include <cstring>
#include <gmock/gmock.h>

namespace {

using test::BlockView;
using test::JoinedPeer;
using test::RefreshThread;

using namespace std::chrono_literals;

class HeldLock : public RefreshThread {
protected:
    void SetUp() override {
        RefreshThread::SetUp();
        time.lockWaitsAre(test::QUICK);
    }

    void expectWaitsOfASecond() const {
        EXPECT_GT(time.lockTimeouts(), 0);
        EXPECT_GT(time.longestLockWait(), 900ms);
        EXPECT_LE(time.longestLockWait(), 1s);
    }

    JoinedPeer holder; // does nothing unless asked, like a stopped process
};

// PEER-8
TEST_F(HeldLock, OfTheBlockStopsAProcessFromJoiningButNotFromStarting) {
    holder.ask("lock");
    WifiHostSettingsWatchdog late;
    EXPECT_TRUE(late.initialize());
    expectWaitsOfASecond();
    EXPECT_FALSE(late.isCreator());
    EXPECT_EQ(late.wifiShmemLock(), EINVAL) << "it has no block";
    EXPECT_TRUE(test::blockHasName()) << "its users continue to share it";
    late.start();
    late.sendSaveSettingsSignal();
    late.stop();
    holder.ask("unlock");
    EXPECT_EQ(BlockView().numbers(), "0 none 2");
}

TEST_F(HeldLock, OfTheSignalDoesNotStopAProcessFromJoining) {
    holder.ask("lock-signal");
    WifiHostSettingsWatchdog late;
    EXPECT_TRUE(late.initialize());
    EXPECT_EQ(late.wifiShmemLock(), 0);
    EXPECT_EQ(late.wifiShmemUnlock(), 0);
    EXPECT_EQ(late.checkForRefreshSignal(0), 0);
    expectWaitsOfASecond();
    holder.ask("unlock-signal");
}

TEST_F(HeldLock, OfTheBlockIsWaitedForASecond) {
    holder.ask("lock");
    watchdog->sendRefreshSettingsSignal();
    EXPECT_EQ(watchdog->checkForRefreshSignal(0), 0);
    EXPECT_EQ(watchdog->wifiShmemLock(), ETIMEDOUT);
    expectWaitsOfASecond();
    holder.ask("unlock");
    EXPECT_FALSE(BlockView().isPending()) << "nothing was raised without the lock";
}

TEST_F(HeldLock, OfTheSignalIsWaitedForASecond) {
    holder.ask("lock-signal");
    watchdog->sendRefreshSettingsSignal();
    EXPECT_EQ(watchdog->checkForRefreshSignal(0), 0);
    expectWaitsOfASecond();
    EXPECT_FALSE(BlockView().isPending());
    holder.ask("unlock-signal");
}

TEST_F(HeldLock, DoesNotStopAProcessFromLeaving) {
    holder.ask("lock");
    watchdog->start();
    watchdog->stop();
    watchdog->wifiShmemDestroy();
    EXPECT_EQ(watchdog->wifiShmemLock(), EINVAL);
    EXPECT_FALSE(test::blockHasName());
}

// PEER-8
TEST_F(HeldLock, DelaysTheNotificationOfASaveUntilItIsReleased) {
    JoinedPeer other;
    for (const char* lock : {"lock", "lock-signal"}) {
        SCOPED_TRACE(lock);
        holder.ask(lock);
        watchdog->start();
        watchdog->sendSaveSettingsSignal();
        test::TestTime::awaitLockTimeouts(3); // while raising the signal, and while waiting for one
        holder.ask(lock == std::string("lock") ? "unlock" : "unlock-signal");
        EXPECT_EQ(other.ask("wait", 100), "waiting");
        EXPECT_EQ(other.answer(), "-1");
        watchdog->stop();
    }
}

TEST_F(HeldLock, OfAHolderThatDoesNotExistIsWaitedForASecond) {
    const BlockView block;
    constexpr int UNUSED_ID = 0x3ffffff0; // larger than any thread's
    std::memcpy(static_cast<void*>(&block->blockMutex), &UNUSED_ID, sizeof(UNUSED_ID));
    WifiHostSettingsWatchdog late;
    EXPECT_TRUE(late.initialize());
    expectWaitsOfASecond();
    watchdog->sendRefreshSettingsSignal();
    watchdog->wifiShmemDestroy();
    constexpr int FREE = 0;
    std::memcpy(static_cast<void*>(&block->blockMutex), &FREE, sizeof(FREE));
}

// PEER-8
// In another process: this one may have printed its line already.
TEST_F(HeldLock, IsReportedOnce) {
    testing::internal::CaptureStderr();
    {
        JoinedPeer reporter;
        holder.ask("lock");
        reporter.ask("refresh");
        reporter.ask("refresh");
    }
    EXPECT_THAT(
        testing::internal::GetCapturedStderr(),
        testing::MatchesRegex("platwifi: a lock in the shared memory object /wifi_shmem has "
                              "been held for more than a second;[^\n]*\n"));
}

} // namespace
