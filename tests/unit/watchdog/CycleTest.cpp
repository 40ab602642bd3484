// The cycle of the refresh thread: it waits for a stop, then for a save of this process. If there
// was none, it waits for a save of another process.

#include "RecordedWaits.h"
#include "RefreshThread.h"

#include <gmock/gmock.h>

namespace {

using test::RecordedReloads;
using test::RecordedWaits;

class RefreshCycle : public test::RefreshThread {
protected:
    void SetUp() override {
        RecordedWaits::reset();
        RefreshThread::SetUp();
    }

    void TearDown() override {
        RefreshThread::TearDown();
        RecordedWaits::reset();
    }
};

// OP-10, PEER-1
TEST_F(RefreshCycle, WaitsForEachSignalForASecond) {
    watchdog->start();
    RecordedWaits::await(9);
    watchdog->stop();
    EXPECT_THAT(RecordedWaits::seconds(), testing::Each(1U));
}

// The third wait is the first of the second cycle, the fifth is its wait for another process.
TEST_F(RefreshCycle, DoesNotWaitForAnotherProcessAfterASave) {
    std::size_t waitsBeforeReload = 0;
    auto* const self = watchdog.get();
    RecordedWaits::at(1, [self] { self->sendSaveSettingsSignal(); });
    RecordedWaits::at(3, [] { raiseAsAnotherProcess(); });
    RecordedReloads::during([&] { waitsBeforeReload = RecordedWaits::count(); });
    watchdog->start();
    RecordedWaits::await(9);
    watchdog->stop();
    EXPECT_EQ(waitsBeforeReload, 5U);
}

// The reload fails after the third wait. The fourth and fifth wait are those of the cycle with the
// save.
TEST_F(RefreshCycle, TriesAFailedReloadAgainAfterASave) {
    auto* const self = watchdog.get();
    RecordedReloads::refuse(1);
    RecordedWaits::at(4, [self] { self->sendSaveSettingsSignal(); });
    raiseAsAnotherProcess();
    watchdog->start();
    RecordedWaits::await(10);
    watchdog->stop();
    EXPECT_EQ(RecordedReloads::calls(), 2);
}

} // namespace
