// What the operations of the settings do where there is no driver to ask.

#include "MissingWifiUtil.h"
#include "RecordedLocks.h"
#include "StatusFixture.h"
#include "platform/BufferedXWriter.h"

#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class MissingDriver : public test::StatusFixture {
protected:
    MissingDriver() {
        loadBoth();
        setStatus("home", NETWORK_STATUS_CONNECTED);
        setCurrent("home");
        missing = std::make_unique<test::MissingWifiUtil>();
    }

    // Nothing was asked, nothing changed, and no lock is left held.
    ~MissingDriver() override {
        EXPECT_THAT(commands(), IsEmpty());
        EXPECT_THAT(ssids(), ElementsAre("work", "home"));
        EXPECT_EQ(current(), "home");
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
        const test::SettingsMutexes mutexes(settings());
        for (PlatformMutex* const mutex : mutexes.all)
            EXPECT_TRUE(test::isFree(mutex));
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
}

TEST_F(MissingDriver, FailsASaveWhichKeepsTheChanges) {
    EXPECT_EQ(settings().saveNetworkSettings(), 0) << "nothing to save";
    record("home")->setPriority(5);
    EXPECT_EQ(settings().saveNetworkSettings(), 0);
    EXPECT_TRUE(record("home")->getPriorityDirty());
}

TEST_F(MissingDriver, GivesNoDocument) {
    for (const bool full : {true, false}) {
        BufferedXWriter out;
        EXPECT_FALSE(settings().getWifiHostSettingsXML(&out, nullptr, full));
        EXPECT_STREQ(out.text(), "");
    }
}

} // namespace
