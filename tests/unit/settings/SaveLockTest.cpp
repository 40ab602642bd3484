// The locks are held from the first command of a save to its signal.

#include "SaveSettings.h"

#include "platform/PlatformUtil.h"
#include "support/Checkpoint.h"
#include "support/ThreadState.h"

#include <atomic>
#include <thread>

using namespace test;

namespace {

// Another thread that wants both locks.
class Contender {
public:
    explicit Contender(WifiHostSettings& settings)
        : m_thread([this, &settings] {
              m_id = PlatformUtil::threadId();
              settings.lockSettings();
              m_entered = true;
              settings.unlockSettings();
          }) {}
    ~Contender() { m_thread.join(); }

    /// Returns when the thread waits, or came in.
    bool isKeptOut() const {
        while (!m_entered && (m_id == 0 || !isAsleep(m_id)))
            std::this_thread::yield();
        return !m_entered;
    }

private:
    std::atomic<int> m_id{0};
    std::atomic<bool> m_entered{false};
    std::thread m_thread;
};

TEST_F(SaveSettings, HoldsTheLocksDuringEveryCommand) {
    load({"home"});
    for (const Arguments& stop :
         {Arguments{"-iwlan0", "set_network", "0", "mode", "0"},
          Arguments{"-iwlan0", "save_config"}, Arguments{"-iwlan0", "reconfigure"}}) {
        SCOPED_TRACE(stop[1]);
        Checkpoint checkpoint("/tmp/save-checkpoint");
        standIn.reset();
        standIn.on(stop).pausesAt(checkpoint.path()).prints("OK\n");
        standIn.on({"*"}).prints("OK\n");
        network("home").setNetworkMode(NETWORK_MODE_MANAGED);
        network("home").setNetworkModeDirty(true);
        std::thread saver([this] { EXPECT_EQ(settings->saveNetworkSettings(), 1); });
        checkpoint.awaitArrival();
        const Contender contender(*settings);
        EXPECT_TRUE(contender.isKeptOut());
        checkpoint.letGo();
        saver.join();
    }
}

TEST_F(SaveSettings, SignalsWhileItHoldsTheLocks) {
    load({"home"});
    network("home").setPriority(5);
    std::unique_ptr<Contender> contender;
    FakeWatchdog::atEverySignal = [&] {
        contender = std::make_unique<Contender>(*settings);
        EXPECT_TRUE(contender->isKeptOut());
    };
    EXPECT_EQ(settings->saveNetworkSettings(), 1);
    EXPECT_EQ(FakeWatchdog::signals, 1);
}

} // namespace
