#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "model/WifiNetwork.h"
#include "supplicant/ReplyLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <pthread.h>
#include <vector>

using platwifi::ReplyLines;
using testing::IsEmpty;

namespace {

struct Event {
    bool isLock;
    const PlatformMutex* mutex;

    bool operator==(const Event& other) const {
        return isLock == other.isLock && mutex == other.mutex;
    }
};

using Events = std::vector<Event>;

// Of this thread only, and only while it wants them.
thread_local Events* recorder = nullptr;

void note(bool isLock, const PlatformMutex* mutex) {
    if (recorder)
        recorder->push_back({isLock, mutex});
}

Events during(const std::function<void()>& work) {
    Events events;
    recorder = &events;
    work();
    recorder = nullptr;
    return events;
}

} // namespace

// In place of the platform's: the same, and they tell what they are asked.
int PlatformUtil::lockMutex(PlatformMutex* mutex) noexcept {
    const int result = pthread_mutex_lock(mutex);
    note(true, mutex);
    return result;
}

int PlatformUtil::unlockMutex(PlatformMutex* mutex) noexcept {
    note(false, mutex);
    return pthread_mutex_unlock(mutex);
}

namespace {

// In the order in which lockSettings() takes them.
struct Locks {
    explicit Locks(WifiHostSettings& settings) {
        const Events events = during([&] { settings.lockSettings(); });
        for (std::size_t i = 0; i < all.size() && i < events.size(); ++i)
            all[i] = events[i].mutex;
        settings.unlockSettings();
        EXPECT_EQ(events.size(), all.size());
    }

    Events taking() const { return {{true, all[0]}, {true, all[1]}, {true, all[2]}}; }
    Events givingBack() const { return {{false, all[2]}, {false, all[1]}, {false, all[0]}}; }

    std::array<const PlatformMutex*, 3> all{}; // entrance, list, settings
};

bool isHeldThroughout(const Events& events, const PlatformMutex* mutex) {
    int depth = 0;
    for (std::size_t i = 0; i < events.size(); ++i) {
        if (events[i].mutex == mutex)
            depth += events[i].isLock ? 1 : -1;
        if (depth == 0 && i > 2 && i + 3 < events.size())
            return false;
    }
    return depth == 0;
}

struct Operation {
    const char* name;
    bool (*run)(WifiHostSettings&);
    bool result;
};

const Operation OPERATIONS[] = {
    {"AddANew", [](WifiHostSettings& s) { return s.addNetwork("wlan0", "new"); }, true},
    {"AddAKnown", [](WifiHostSettings& s) { return s.addNetwork("wlan0", "home"); }, false},
    {"AddNone", [](WifiHostSettings& s) { return s.addNetwork("wlan0", nullptr); }, false},
    {"Remove", [](WifiHostSettings& s) { return s.removeNetwork("wlan0", "home"); }, true},
    {"RemoveAnUnknown", [](WifiHostSettings& s) { return s.removeNetwork("wlan0", "x"); }, true},
    {"RemoveFails", [](WifiHostSettings& s) { return s.removeNetwork("", "home"); }, false},
    {"Connect", [](WifiHostSettings& s) { return s.connectNetwork("wlan0", "home"); }, true},
    {"ConnectAnUnknown", [](WifiHostSettings& s) { return s.connectNetwork("wlan0", "x"); }, false},
    {"ConnectFails", [](WifiHostSettings& s) { return s.connectNetwork("", "home"); }, false},
    {"Disconnect", [](WifiHostSettings& s) { return s.disconnectNetwork("wlan0", "home"); }, true},
    {"DisconnectAnUnknown", [](WifiHostSettings& s) { return s.disconnectNetwork("wlan0", "x"); },
     true},
    {"DisconnectFails", [](WifiHostSettings& s) { return s.disconnectNetwork("", "home"); }, false},
    {"Roam", [](WifiHostSettings& s) { return s.roamNetworks("wlan0"); }, true},
    {"RoamFails", [](WifiHostSettings& s) { return s.roamNetworks(""); }, false},
};

class LockedOperation : public testing::TestWithParam<Operation> {
protected:
    test::LoadedSettings loaded;
};

TEST_P(LockedOperation, HoldsBothLocksFromBeginningToEnd) {
    WifiHostSettings& settings =
        loaded.load("0\thome\tany\t\n1\twork\tany\t\n", "ssid=home\nwpa_state=COMPLETED\n");
    loaded.standIn.on({"-iwlan0", "add_network"}).prints("2\n");
    loaded.answer("OK\n");
    const Locks locks(settings);
    const Events events = during([&] { EXPECT_EQ(GetParam().run(settings), GetParam().result); });
    ASSERT_GE(events.size(), 6U);
    EXPECT_EQ(Events(events.begin(), events.begin() + 3), locks.taking());
    EXPECT_EQ(Events(events.end() - 3, events.end()), locks.givingBack());
    for (const PlatformMutex* const mutex : locks.all)
        EXPECT_TRUE(isHeldThroughout(events, mutex));
}

INSTANTIATE_TEST_SUITE_P(Every, LockedOperation, testing::ValuesIn(OPERATIONS),
                         [](const auto& test) { return std::string(test.param.name); });

class OtherLocks : public testing::Test {
protected:
    test::LoadedSettings loaded;
};

TEST_F(OtherLocks, AreThatOfTheListForTheSsids) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    const Locks locks(settings);
    ReplyLines ssids(32);
    const Events events =
        during([&] { settings.getNetworkDatabaseSsids("wlan0", ssids.data(), 32, &ssids.count); });
    EXPECT_EQ(events, (Events{{true, locks.all[0]},
                              {true, locks.all[1]},
                              {false, locks.all[1]},
                              {false, locks.all[0]}}));
}

TEST_F(OtherLocks, AreNoneForALookupAndForTheAdapters) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    ReplyLines names(2);
    EXPECT_THAT(during([&] { settings.getWifiAdapters(names.data(), 2, &names.count); }),
                IsEmpty());
    EXPECT_THAT(during([&] { settings.getNetwork("wlan0", "home"); }), IsEmpty());
}

} // namespace
