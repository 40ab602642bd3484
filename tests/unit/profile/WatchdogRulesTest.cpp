// Which processes reload after a save, under each profile. Each watchdog stands for a process.

#include "watchdog/WifiHostSettingsWatchdog.h"

#include "support/UseProfile.h"

#include <gtest/gtest.h>

#include <thread>

using platwifi::Profile;

namespace {

// Three users of the block. The wait of a check is the shortest there is.
class WatchdogRules : public testing::Test {
protected:
    WatchdogRules() {
        for (WifiHostSettingsWatchdog& process : processes)
            process.initialize();
    }

    static bool reloads(WifiHostSettingsWatchdog& process) {
        bool seen = false;
        std::thread([&] { seen = process.checkForRefreshSignal(0) != 0; }).join();
        return seen;
    }

    static void saves(WifiHostSettingsWatchdog& process) {
        std::thread([&] { process.sendRefreshSettingsSignal(); }).join();
    }

    WifiHostSettingsWatchdog processes[3];
};

// PROFILE-20
TEST_F(WatchdogRules, UnderTheDeviceOneProcessReloads) {
    const test::UseProfile device(Profile::DEVICE);
    saves(processes[0]);
    EXPECT_TRUE(reloads(processes[1]));
    EXPECT_FALSE(reloads(processes[2]));
}

// PROFILE-20
TEST_F(WatchdogRules, UnderModernEveryOtherProcessReloadsOnce) {
    const test::UseProfile modern(Profile::MODERN);
    saves(processes[0]);
    EXPECT_FALSE(reloads(processes[0]));
    EXPECT_TRUE(reloads(processes[1]));
    EXPECT_TRUE(reloads(processes[2]));
    EXPECT_FALSE(reloads(processes[1]));
    EXPECT_FALSE(reloads(processes[2]));
}

// PROFILE-20
TEST_F(WatchdogRules, UnderModernASaveDoesNotHideThatOfAnother) {
    const test::UseProfile modern(Profile::MODERN);
    saves(processes[0]);
    saves(processes[1]);
    EXPECT_TRUE(reloads(processes[0])) << "of the save of the second";
    EXPECT_TRUE(reloads(processes[1])) << "of the save of the first, which its own followed";
    EXPECT_TRUE(reloads(processes[2]));
    for (WifiHostSettingsWatchdog& process : processes)
        EXPECT_FALSE(reloads(process));
}

// PROFILE-20
TEST_F(WatchdogRules, AProcessUnderTheDeviceStillTakesASignal) {
    {
        const test::UseProfile modern(Profile::MODERN);
        saves(processes[0]);
        EXPECT_TRUE(reloads(processes[1]));
    }
    const test::UseProfile device(Profile::DEVICE);
    EXPECT_TRUE(reloads(processes[2]));
}

} // namespace
