// The refresh thread waits for settings that are in use, but not for ever.

#include "LoadedSettings.h"
#include "RecordedLocks.h"
#include "support/ForeignSignal.h"
#include "support/ThreadState.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

class RefreshWait : public testing::Test {
protected:
    bool isReloaded(WifiHostSettings& settings) const {
        settings.lockSettings();
        const bool found = settings.getNetwork("wlan0", "office") != nullptr;
        settings.unlockSettings();
        return found;
    }

    test::ForeignSignal elsewhere;
    test::LoadedSettings loaded;
};

// A thread that only tried the lock now and then would never find it free in a busy program.
// PEER-1
TEST_F(RefreshWait, GoesOnForAWhileAndLeavesTheReloadOwed) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    settings.lockSettings();
    elsewhere.raise();
    test::awaitLockTimeout();
    test::awaitLockTimeout();
    loaded.scriptLoad("0\toffice\tany\t\n");
    settings.unlockSettings();
    while (!isReloaded(settings))
        std::this_thread::yield();
}

TEST_F(RefreshWait, EndsForAThreadThatUnloads) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    settings.lockSettings();
    elsewhere.raise();
    test::awaitLockTimeout();
    WifiHostSettings::unload();
    settings.unlockSettings();
    test::awaitNoThreadNamed("tWifiRefreshWat");
}

} // namespace
