// The locks are held from the first command of a save to its signal.

#include "SaveSettings.h"

#include "support/Checkpoint.h"
#include "support/Doing.h"

#include <memory>

using namespace test;

namespace {

class SaveLock : public SaveSettings {
protected:
    /// Another thread that takes the locks.
    static std::unique_ptr<Doing> contender() {
        auto other = std::make_unique<Doing>([] {
            settings().lockSettings();
            settings().unlockSettings();
        });
        other->awaitRest();
        return other;
    }
};

TEST_F(SaveLock, IsHeldDuringEveryCommand) {
    load({"home"});
    const Arguments commands[] = {{"-iwlan0", "set_network", "0", "mode", "0"},
                                  {"-iwlan0", "save_config"},
                                  {"-iwlan0", "reconfigure"}};
    for (const Arguments& command : commands) {
        SCOPED_TRACE(command[1]);
        Checkpoint checkpoint("/tmp/save-checkpoint");
        standIn.reset();
        standIn.on(command).pausesAt(checkpoint.path()).prints("OK\n");
        answer("OK\n");
        network("home")->setNetworkMode(NETWORK_MODE_MANAGED);
        network("home")->setNetworkModeDirty(true);
        const Doing saving([] { EXPECT_EQ(settings().saveNetworkSettings(), 1); });
        checkpoint.awaitArrival();
        const auto other = contender();
        EXPECT_FALSE(other->isDone());
        checkpoint.letGo();
    }
}

TEST_F(SaveLock, IsHeldDuringTheSignal) {
    load({"home"});
    network("home")->setPriority(5);
    std::vector<std::unique_ptr<Doing>> others;
    SaveSignals::atEach = [&] {
        others.push_back(contender());
        EXPECT_FALSE(others.back()->isDone());
    };
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_EQ(SaveSignals::count, 1);
}

} // namespace
