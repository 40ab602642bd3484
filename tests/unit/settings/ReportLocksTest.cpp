// The locks that the reports take.

#include "LoadedSettings.h"
#include "RecordedLocks.h"

#include "platform/BufferedXWriter.h"

using test::LockEvents;

namespace {

class ReportLocks : public test::SettingsTest {
protected:
    ReportLocks() {
        load("0\thome\tany\t\n");
        standIn.on({"*"}).prints("wpa_state=INACTIVE\n");
    }

    const test::SettingsMutexes locks{settings()};
};

TEST_F(ReportLocks, AreAllHeldForADocumentToItsEnd) {
    for (const bool full : {true, false}) {
        BufferedXWriter out;
        const LockEvents events = test::eventsOf(
            [&] { EXPECT_TRUE(settings().getWifiHostSettingsXML(&out, nullptr, full)); });
        EXPECT_TRUE(locks.areHeldThroughout(locks.among(events)));
    }
}

// None for the status, which was brought up to date just before.
TEST_F(ReportLocks, AreThatOfTheNetworksForADumpAndThatOfTheStateAtItsEnd) {
    const LockEvents events = test::eventsOf([] { dump(); });
    EXPECT_EQ(locks.among(events), (LockEvents{{true, locks.all[0]},
                                               {true, locks.all[1]},
                                               {false, locks.all[1]},
                                               {false, locks.all[0]}}));
}

} // namespace
