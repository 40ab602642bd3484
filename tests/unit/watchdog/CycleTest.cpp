// The cycle of the refresh thread: it waits for a stop, then for a save of this process. If there
// was none, it waits for a save of another process.

#include "RefreshThread.h"

#include <gmock/gmock.h>

namespace {

using test::RecordedReloads;

class RefreshCycle : public test::RefreshThread {
protected:
    RefreshCycle() { time.deadlinesAreRecorded(); }
};

// OP-10, PEER-1
TEST_F(RefreshCycle, WaitsForEachSignalForASecond) {
    watchdog->start();
    time.awaitEvents(9);
    watchdog->stop();
    EXPECT_THAT(time.events(), testing::Each("deadline 1"));
}

// The third wait is the first of the second cycle, the fifth is its wait for another process.
TEST_F(RefreshCycle, DoesNotWaitForAnotherProcessAfterASave) {
    std::size_t waitsBeforeReload = 0;
    auto* const self = watchdog.get();
    time.atEvent(1, [self] { self->sendSaveSettingsSignal(); });
    time.atEvent(3, [] { raiseAsAnotherProcess(); });
    RecordedReloads::during([&] { waitsBeforeReload = time.events().size(); });
    watchdog->start();
    time.awaitEvents(9);
    watchdog->stop();
    EXPECT_EQ(waitsBeforeReload, 5U);
}

// The reload fails after the third wait. The fourth and fifth wait are those of the cycle with the
// save.
TEST_F(RefreshCycle, TriesAFailedReloadAgainAfterASave) {
    auto* const self = watchdog.get();
    RecordedReloads::refuse(1);
    time.atEvent(4, [self] { self->sendSaveSettingsSignal(); });
    raiseAsAnotherProcess();
    watchdog->start();
    time.awaitEvents(10);
    watchdog->stop();
    EXPECT_EQ(RecordedReloads::calls(), 2);
}

} // namespace
