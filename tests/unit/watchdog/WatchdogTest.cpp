// One watchdog, without its thread.

#include "RefreshThread.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/stat.h>

namespace {

std::function<void()> atUnlink;

} // namespace

// Replaces the function of the C library.
extern "C" __attribute__((visibility("default"))) int shm_unlink(const char* name) {
    if (atUnlink)
        atUnlink();
    return unlink((std::string("/dev/shm") + name).c_str());
}

namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;
using test::BlockView;

std::uint32_t ownId() {
    return static_cast<std::uint32_t>(PlatformUtil::threadId());
}

using Watchdog = test::InitializedWatchdog;

TEST(NewWatchdog, MakesNothingBeforeItIsInitialised) {
    WifiHostSettingsWatchdog watchdog;
    EXPECT_FALSE(test::blockHasName());
    EXPECT_FALSE(watchdog.isCreator());
    EXPECT_EQ(watchdog.checkForRefreshSignal(100), 0);
    EXPECT_EQ(watchdog.wifiShmemLock(), EINVAL);
    EXPECT_EQ(watchdog.wifiShmemUnlock(), EINVAL);
    watchdog.sendRefreshSettingsSignal();
    watchdog.wifiShmemDestroy();
    watchdog.stop();
    EXPECT_FALSE(test::blockHasName());
}

TEST_F(Watchdog, CountsOneMoreUserWhenItIsInitialisedAgain) {
    EXPECT_TRUE(watchdog.isCreator());
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
    EXPECT_TRUE(watchdog.initialize());
    EXPECT_TRUE(watchdog.isCreator());
    EXPECT_EQ(BlockView().numbers(), "0 none 2");
    EXPECT_EQ(watchdog.wifiShmemCreate(), 0);
    EXPECT_EQ(BlockView().numbers(), "0 none 3");
}

TEST_F(Watchdog, RemovesTheNameAndEndsTheBlockAsItsLastUser) {
    const BlockView block;
    block.raise(ownId());
    watchdog.wifiShmemDestroy();
    EXPECT_FALSE(test::blockHasName());
    EXPECT_EQ(block.numbers(), "0 none 0");
    EXPECT_FALSE(block->refreshCondition.isSetUp());
    EXPECT_EQ(watchdog.checkForRefreshSignal(100), 0);
}

// After it has left the block, the name may already belong to a new one.
TEST_F(Watchdog, RemovesTheNameBeforeItLeavesTheBlock) {
    std::string numbers;
    atUnlink = [&] { numbers = BlockView().numbers(); };
    watchdog.wifiShmemDestroy();
    atUnlink = nullptr;
    EXPECT_EQ(numbers, "0 none 1");
}

TEST_F(Watchdog, MakesABlockAgainAfterItHasLeftOne) {
    watchdog.wifiShmemDestroy();
    watchdog.initialize();
    EXPECT_EQ(BlockView().numbers(), "0 none 1");
}

TEST(NewWatchdog, LeavesTheBlockWhenItIsDestroyed) {
    { WifiHostSettingsWatchdog().initialize(); }
    EXPECT_FALSE(test::blockHasName());
}

TEST_F(Watchdog, LeavesABlockThatItHoldsLocked) {
    const BlockView block;
    EXPECT_EQ(watchdog.wifiShmemLock(), 0);
    EXPECT_EQ(watchdog.wifiShmemLock(), 0) << "recursive";
    watchdog.wifiShmemDestroy();
    EXPECT_EQ(block->lock(), 0) << "it was released";
    block->unlock();
}

TEST_F(Watchdog, RaisesTheSignalToReloadWithItsThreadAsSender) {
    watchdog.sendRefreshSettingsSignal();
    EXPECT_EQ(BlockView().numbers(), "1 " + std::to_string(ownId()) + " 1");
}

TEST_F(Watchdog, DoesNotTakeASignalOfItsOwnThread) {
    watchdog.sendRefreshSettingsSignal();
    EXPECT_EQ(watchdog.checkForRefreshSignal(0), 0);
    EXPECT_TRUE(BlockView().isPending());
}

TEST_F(Watchdog, TakesTheSignalOfAnotherThreadOnce) {
    for (const std::uint32_t sender : {ownId() + 1, SharedSignalBlock::NO_SENDER}) {
        BlockView().raise(sender);
        EXPECT_EQ(watchdog.checkForRefreshSignal(0), -1);
        EXPECT_EQ(watchdog.checkForRefreshSignal(0), 0);
        EXPECT_FALSE(BlockView().isPending());
    }
}

// PEER-5
TEST_F(Watchdog, SeesAnEarlierSignalToReloadAfterTheWholeWait) {
    BlockView().raise(ownId() + 1);
    const auto start = steady_clock::now();
    EXPECT_EQ(watchdog.checkForRefreshSignal(1), -1);
    EXPECT_GE(steady_clock::now() - start, seconds(1));
}

TEST_F(Watchdog, WaitsTheWholeTimeWithoutASignalToReload) {
    const auto start = steady_clock::now();
    EXPECT_EQ(watchdog.checkForRefreshSignal(1), 0);
    EXPECT_GE(steady_clock::now() - start, seconds(1));
}

TEST(NewWatchdog, KeepsSaveAndStopSignalsApart) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.sendSaveSettingsSignal();
    EXPECT_EQ(watchdog.checkForStopSignal(0), 0);
    EXPECT_EQ(watchdog.checkForSaveSignal(0), -1);
    watchdog.sendStopRefreshThreadSignal();
    EXPECT_EQ(watchdog.checkForSaveSignal(0), 0);
    EXPECT_EQ(watchdog.checkForStopSignal(0), -1);
}

TEST(NewWatchdog, RunsWithoutABlockThatTheSystemRefuses) {
    mkdir(test::BLOCK_PATH, 0700);
    {
        WifiHostSettingsWatchdog watchdog;
        EXPECT_TRUE(watchdog.initialize());
        EXPECT_FALSE(watchdog.isCreator());
        watchdog.sendRefreshSettingsSignal();
        EXPECT_EQ(watchdog.checkForRefreshSignal(100), 0);
        EXPECT_EQ(watchdog.wifiShmemLock(), EINVAL);
    }
    EXPECT_TRUE(std::filesystem::remove(test::BLOCK_PATH)) << "the watchdog does not remove it";
}

} // namespace
