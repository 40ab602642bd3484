#pragma once

#include "BlockView.h"
#include "RecordedReloads.h"
#include "support/TestTime.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include "support/ThreadState.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace test {

/// The base of tests with a watchdog that has its block and no thread.
class InitializedWatchdog : public testing::Test {
protected:
    InitializedWatchdog() { EXPECT_TRUE(watchdog.initialize()); }

    WifiHostSettingsWatchdog watchdog;
};

/// The ids of the refresh threads of this process.
inline std::vector<int> refreshThreads() {
    return threadsNamed(REFRESH_THREAD);
}

/// A watchdog that has its block. A test starts its thread, whose waits are quick.
class RefreshThread : public testing::Test {
protected:
    void SetUp() override {
        time.deadlinesAre(QUICK);
        RecordedReloads::reset();
        watchdog = std::make_unique<WifiHostSettingsWatchdog>();
        watchdog->initialize();
    }

    // Also waits until the thread has ended, so that the next test does not see it.
    void TearDown() override {
        watchdog.reset();
        awaitNoThreadNamed(REFRESH_THREAD);
        std::filesystem::remove_all(test::BLOCK_PATH);
    }

    static void raiseAsAnotherProcess() {
        const BlockView block;
        if (block)
            block.raise(SharedSignalBlock::NO_SENDER);
        else
            ADD_FAILURE() << "there is no block with the name";
    }

    TestTime time;
    std::unique_ptr<WifiHostSettingsWatchdog> watchdog;
};

} // namespace test
