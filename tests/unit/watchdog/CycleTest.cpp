// The cycle of the refresh thread: it waits for a stop, for a save of this process, and then for one of
// another process, in a cycle without a save.

#include "RecordedWaits.h"
#include "RefreshThread.h"

#include <gmock/gmock.h>

namespace {

using test::Door;
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

// The third wait is the first of the next cycle, and the fifth that for another process.
TEST_F(RefreshCycle, HasNoWaitForAnotherProcessAfterASave) {
    std::size_t waitsBeforeReload = 0;
    auto* const self = watchdog.get();
    RecordedWaits::at(1, [self] { self->sendSaveSettingsSignal(); });
    RecordedWaits::at(3, [] { raiseFromElsewhere(); });
    Door::during([&] { waitsBeforeReload = RecordedWaits::count(); });
    watchdog->start();
    RecordedWaits::await(9);
    watchdog->stop();
    EXPECT_EQ(waitsBeforeReload, 5U);
}

// Refused at the third wait; the fourth and fifth are those of the cycle with the save.
TEST_F(RefreshCycle, KeepsAReloadThatIsOwedWhileItHandlesASave) {
    auto* const self = watchdog.get();
    Door::refuse(1);
    RecordedWaits::at(4, [self] { self->sendSaveSettingsSignal(); });
    raiseFromElsewhere();
    watchdog->start();
    RecordedWaits::await(10);
    watchdog->stop();
    EXPECT_EQ(Door::calls(), 2);
}

} // namespace
