// The refresh thread waits for settings that are in use, but not without limit.

#include "LoadedSettings.h"
#include "RecordedLocks.h"

#include "support/ForeignSignal.h"
#include "support/ThreadState.h"

#include <thread>

namespace {

class RefreshWait : public test::SettingsTest {
protected:
    /// Keeps the settings locked until the refresh thread has waited for them once.
    RefreshWait() {
        load("0\thome\tany\t\n");
        settings().lockSettings();
        elsewhere.raise();
        test::awaitLockTimeout();
    }

    test::ForeignSignal elsewhere;
};

// A thread that only tried the lock now and then would hardly find it free in a busy program.
// PEER-1
TEST_F(RefreshWait, IsRepeatedUntilTheReload) {
    test::awaitLockTimeout();
    scriptLoad("0\toffice\tany\t\n");
    settings().unlockSettings();
    while (ssids() != std::vector<std::string>{"office"})
        std::this_thread::yield();
}

TEST_F(RefreshWait, EndsForAThreadThatUnloads) {
    WifiHostSettings::unload();
    settings().unlockSettings();
    test::awaitNoThreadNamed(test::REFRESH_THREAD);
}

} // namespace
