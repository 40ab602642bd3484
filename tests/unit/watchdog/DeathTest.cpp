// A process is killed while it holds locks of the block, or waits for a signal.

#include "BlockView.h"
#include "Peer.h"
#include "support/RobustMutex.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using test::BlockView;
using test::JoinedPeer;
using test::Peer;

struct Death {
    const char* name;
    std::vector<const char*> locks; ///< that the process held
};

const Death DEATHS[] = {
    {"BlockMutex", {"lock"}},
    {"BlockMutexTwice", {"lock", "lock"}},
    {"SignalMutex", {"lock-signal"}},
    {"Both", {"lock-signal", "lock"}},
    {"BothInReverse", {"lock", "lock-signal"}},
};

class DeathOfAHolder : public testing::TestWithParam<Death> {
protected:
    void SetUp() override {
        if (!test::systemHasRobustMutexes())
            GTEST_SKIP() << "this system does not recover the mutexes of a dead process";
        watchdog.initialize();
    }

    static void dieHolding(const std::vector<const char*>& locks) {
        JoinedPeer peer;
        for (const char* lock : locks)
            EXPECT_EQ(peer.ask(lock), "0");
        peer.kill();
    }

    WifiHostSettingsWatchdog watchdog;
};

// PEER-4, PEER-7
TEST_P(DeathOfAHolder, RaisesASignalWithoutASender) {
    dieHolding(GetParam().locks);
    EXPECT_EQ(watchdog.checkForRefreshSignal(0), -1);
    EXPECT_EQ(watchdog.checkForRefreshSignal(0), 0);
    EXPECT_EQ(BlockView().numbers(), "0 none 2") << "the dead process is still counted";
}

// A process never takes its own signal, so the signal after a death must not carry the last
// sender's id.
TEST_P(DeathOfAHolder, RaisesASignalThatTheLastSenderTakesToo) {
    JoinedPeer other;
    watchdog.sendRefreshSettingsSignal();
    EXPECT_EQ(other.ask("check"), "-1");
    dieHolding(GetParam().locks);
    EXPECT_EQ(watchdog.checkForRefreshSignal(0), -1);
}

TEST_P(DeathOfAHolder, DoesNotKeepOthersFromRaisingASignal) {
    JoinedPeer other;
    dieHolding(GetParam().locks);
    watchdog.sendRefreshSettingsSignal();
    EXPECT_EQ(other.ask("check"), "-1");
    EXPECT_EQ(other.ask("check"), "0");
}

// PEER-4
TEST_P(DeathOfAHolder, DoesNotKeepOthersFromJoiningAndLeaving) {
    dieHolding(GetParam().locks);
    {
        JoinedPeer late;
        EXPECT_EQ(late.ask("creator"), "0");
        EXPECT_EQ(late.ask("check"), "-1");
        EXPECT_EQ(BlockView().numbers(), "0 none 3");
    }
    watchdog.wifiShmemDestroy();
}

TEST_P(DeathOfAHolder, IsRecoveredFromEachTime) {
    for (int death = 0; death < 3; ++death) {
        dieHolding(GetParam().locks);
        EXPECT_EQ(watchdog.checkForRefreshSignal(0), -1);
    }
    EXPECT_EQ(watchdog.wifiShmemLock(), 0);
    EXPECT_EQ(watchdog.wifiShmemUnlock(), 0);
}

// The process that waits locks the signal mutex again after its holder has died.
TEST_P(DeathOfAHolder, DoesNotBreakTheWaitOfAnotherProcess) {
    JoinedPeer waiter;
    waiter.beginWait();
    dieHolding(GetParam().locks);
    BlockView()->refreshCondition.broadcast();
    if (waiter.answer() == "0") { // it did not need the lock that was held
        watchdog.sendRefreshSettingsSignal();
        EXPECT_EQ(waiter.ask("check"), "-1");
    }
    EXPECT_EQ(waiter.ask("check"), "0");
}

INSTANTIATE_TEST_SUITE_P(Locks, DeathOfAHolder, testing::ValuesIn(DEATHS),
                         [](const auto& row) { return std::string(row.param.name); });

// PEER-7
TEST(DeathOfAWaiter, DoesNotDisturbOthers) {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    for (int death = 0; death < 5; ++death) {
        JoinedPeer peers[2];
        for (Peer& peer : peers) {
            peer.beginWait();
            peer.kill();
        }
        for (int i = 0; i < 20; ++i)
            watchdog.sendRefreshSettingsSignal();
    }
    JoinedPeer survivor;
    EXPECT_EQ(survivor.ask("check"), "-1") << "the signal is still there";
    survivor.beginWait();
    watchdog.sendRefreshSettingsSignal();
    EXPECT_EQ(survivor.answer(), "-1");
    watchdog.wifiShmemDestroy();
}

} // namespace
