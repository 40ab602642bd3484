#include "LoadFixture.h"

#include "support/Checkpoint.h"
#include "support/Doing.h"

#include <atomic>

namespace {

class LoadThreads : public test::LoadFixture {};

// Readers that take the lock see a whole load, never half of one.
TEST_F(LoadThreads, AreKeptApartFromARefresh) {
    value("0", "identity", "me");
    script("0\thome\tany\t[CURRENT]\n", "ssid=home\nwpa_state=COMPLETED\n");
    WifiHostSettings& settings = load();
    std::atomic<bool> done{false};
    std::thread reader([&] {
        while (!done) {
            settings.lockSettings();
            EXPECT_EQ(ssids().size(), 1U);
            EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
            EXPECT_STREQ(network("home")->getEAPIdentity(), "me");
            settings.unlockSettings();
            std::this_thread::yield();
        }
    });
    for (int i = 0; i < 5; ++i)
        load();
    done = true;
    reader.join();
}

TEST_F(LoadThreads, FindNoAdaptersUntilARefreshHasReadThem) {
    const WifiHostSettings& settings = load("0\thome\tany\t\n");
    const auto adapters = [&settings] {
        platwifi::ReplyLines names(2);
        EXPECT_TRUE(settings.getWifiAdapters(names.data(), 2, &names.count));
        return static_cast<int>(names.count);
    };
    EXPECT_EQ(adapters(), 1);
    test::Checkpoint checkpoint("/tmp/checkpoint");
    standIn.on({"interface"})
        .pausesAt(checkpoint.path())
        .prints(test::ADAPTER_HEADER + "wlan0\nwlan1\n");
    script("0\thome\tany\t\n");
    {
        const test::Doing refreshing([this] { load(); });
        checkpoint.awaitArrival();
        EXPECT_EQ(adapters(), 0);
        checkpoint.letGo();
    }
    EXPECT_EQ(adapters(), 2);
}

} // namespace
