#pragma once

#include "BlockView.h"
#include "RecordedReloads.h"
#include "support/TestTime.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace test {

// The ids of the refresh threads of this process.
inline std::vector<int> refreshThreads() {
    std::vector<int> ids;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        if (name == "tWifiRefreshWat")
            ids.push_back(std::stoi(task.path().filename()));
    }
    return ids;
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
        while (!refreshThreads().empty())
            std::this_thread::yield();
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
