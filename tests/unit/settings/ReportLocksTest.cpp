// The locks that the reports take.

#include "RecordedLocks.h"
#include "ReportedSettings.h"
#include "model/WifiNetwork.h"
#include "platform/BufferedXWriter.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace test {
namespace {

class ReportLocks : public testing::Test {
protected:
    /// What becomes of the locks of the settings, in order.
    LockEvents eventsOf(const std::function<void()>& report) const {
        LockEvents events = test::eventsOf(report);
        const auto isAnother = [this](const LockEvent& event) {
            return std::find(locks.all.begin(), locks.all.end(), event.mutex) == locks.all.end();
        };
        events.erase(std::remove_if(events.begin(), events.end(), isAnother), events.end());
        return events;
    }

    bool areFree() const { return std::all_of(locks.all.begin(), locks.all.end(), isFree); }

    ReportedSettings reported;
    const SettingsMutexes locks{*reported.settings};
};

TEST_F(ReportLocks, AreAllHeldForADocumentToItsEnd) {
    reported.add("home");
    for (const bool full : {true, false}) {
        BufferedXWriter out;
        const LockEvents events = eventsOf(
            [&] { EXPECT_TRUE(reported.settings->getWifiHostSettingsXML(&out, nullptr, full)); });
        ASSERT_GE(events.size(), 6U);
        EXPECT_EQ(LockEvents(events.begin(), events.begin() + 3), locks.taking());
        EXPECT_EQ(LockEvents(events.end() - 3, events.end()), locks.givingBack());
        for (PlatformMutex* const mutex : locks.all) {
            int depth = 0;
            int times = 0;
            for (const LockEvent& event : events) {
                depth += event.mutex != mutex ? 0 : event.isLock ? 1 : -1;
                times += event.mutex == mutex && depth == 0 ? 1 : 0;
            }
            EXPECT_EQ(times, 1) << "given back once, at the end";
        }
    }
    EXPECT_TRUE(areFree());
}

TEST_F(ReportLocks, AreThoseOfTheNetworksForADumpAndThatOfTheStateAtItsEnd) {
    reported.add("home");
    LockEvents events;
    testing::internal::CaptureStderr();
    events = eventsOf([&] { reported.settings->dump(); });
    testing::internal::GetCapturedStderr();

    LockEvents expected{{true, locks.all[0]}, {true, locks.all[1]}};
    for (const LockEvents& part : // none for the status, which was brought up to date just before
         {LockEvents{{true, locks.all[2]}, {false, locks.all[2]}},
          LockEvents{{false, locks.all[1]}, {false, locks.all[0]}}})
        expected.insert(expected.end(), part.begin(), part.end());
    EXPECT_EQ(events, expected);
    EXPECT_TRUE(areFree());
}

} // namespace
} // namespace test
