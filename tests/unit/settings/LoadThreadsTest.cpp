#include "LoadFixture.h"

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

} // namespace
