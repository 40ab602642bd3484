#pragma once

#include "BlockView.h"
#include "Door.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace test {

// The ids of the threads of this process that bear the name.
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

/// A watchdog that has got its block, and a thread when a test starts it.
class RefreshThread : public testing::Test {
protected:
    void SetUp() override {
        Door::reset();
        watchdog = std::make_unique<WifiHostSettingsWatchdog>();
        watchdog->initialize();
    }

    // Also waits for the thread to be gone, so that the next test does not see it.
    void TearDown() override {
        watchdog.reset();
        while (!refreshThreads().empty())
            std::this_thread::yield();
        std::filesystem::remove_all(test::BLOCK_PATH);
    }

    static void raiseFromElsewhere() { BlockView().raise(SharedSignalBlock::NO_SENDER); }

    std::unique_ptr<WifiHostSettingsWatchdog> watchdog;
};

} // namespace test
