// The operations of the settings where there is no driver.

#include "MissingWifiUtil.h"
#include "RecordedLocks.h"
#include "StatusTest.h"

#include "platform/BufferedXWriter.h"

#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class MissingDriver : public test::StatusTest {
protected:
    MissingDriver() {
        loadBoth();
        setState("COMPLETED");
        atHome(NETWORK_STATUS_CONNECTED);
    }

    // Nothing was asked, and no lock is left held.
    ~MissingDriver() override {
        EXPECT_THAT(commands(), IsEmpty());
        EXPECT_THAT(ssids(), ElementsAre("work", "home"));
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
        const test::SettingsMutexes mutexes(settings());
        for (PlatformMutex* const mutex : mutexes.all)
            EXPECT_TRUE(test::isFree(mutex));
    }

    void atHome(unsigned int status) {
        missing.reset();
        setCurrent("home");
        setStatus("home", status);
        missing = std::make_unique<test::MissingWifiUtil>();
    }

    void expectAtHome() {
        missing.reset(); // else it has no current network
        EXPECT_EQ(current(), "home");
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
    }

private:
    std::unique_ptr<test::MissingWifiUtil> missing; // not while they are loaded
};

TEST_F(MissingDriver, FailsEveryOperationOnANetwork) {
    EXPECT_FALSE(settings().addNetwork("wlan0", "new"));
    EXPECT_FALSE(settings().removeNetwork("wlan0", "work"));
    EXPECT_FALSE(settings().connectNetwork("wlan0", "work"));
    EXPECT_FALSE(settings().disconnectNetwork("wlan0", "home"));
    EXPECT_FALSE(settings().roamNetworks("wlan0"));
    expectAtHome();
}

TEST_F(MissingDriver, FailsASaveWhichKeepsTheChanges) {
    EXPECT_EQ(settings().saveNetworkSettings(), 0) << "nothing to save";
    network("home")->setPriority(5);
    EXPECT_EQ(settings().saveNetworkSettings(), 0);
    EXPECT_TRUE(network("home")->getPriorityDirty());
    expectAtHome();
}

TEST_F(MissingDriver, FailsARefreshOfTheStatus) {
    EXPECT_FALSE(refreshLater());
    expectAtHome();
}

TEST_F(MissingDriver, GivesNoDocument) {
    for (const bool full : {true, false}) {
        BufferedXWriter out;
        EXPECT_FALSE(settings().getWifiHostSettingsXML(&out, nullptr, full));
        EXPECT_STREQ(out.text(), "");
    }
    expectAtHome();
}

// As where the supplicant does not answer.
TEST_F(MissingDriver, GivesNoCurrentNetworkAndTheStateUnknown) {
    EXPECT_EQ(settings().getCurrentNetwork("wlan0"), nullptr);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    atHome(NETWORK_STATUS_DISABLED);
    EXPECT_EQ(settings().getCurrentNetwork("wlan0"), nullptr);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(state(), WPA_STATE_COMPLETED);
    atHome(NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(settings().getCurrentStatus("wlan0"), WPA_STATE_UNKNOWN);
    EXPECT_EQ(state(), WPA_STATE_UNKNOWN);
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

} // namespace
