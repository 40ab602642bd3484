#include "model/WifiNetworkList.h"

#include "model/WifiNetwork.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using Events = std::vector<std::string>;

namespace {

Events events;

int note(const char* event) {
    events.emplace_back(event);
    return 0;
}

} // namespace

// In place of the platform's: what is asked of the mutex, in order.
int PlatformUtil::createMutex(PlatformMutex* /*mutex*/) noexcept {
    return note("create");
}

int PlatformUtil::lockMutex(PlatformMutex* /*mutex*/) noexcept {
    return note("lock");
}

int PlatformUtil::unlockMutex(PlatformMutex* /*mutex*/) noexcept {
    return note("unlock");
}

int PlatformUtil::destroyMutex(PlatformMutex* /*mutex*/) noexcept {
    return note("destroy");
}

namespace {

class NetworkListLock : public testing::Test {
protected:
    NetworkListLock() {
        auto network = std::make_unique<WifiNetwork>();
        network->setSsid("A");
        static_cast<void>(list->addNetworkToList(network.release()));
        events.clear();
    }

    std::unique_ptr<WifiNetworkList> list = std::make_unique<WifiNetworkList>();
};

// Whether the events are those of one lock, held from beginning to end.
bool isHeldThroughout(const Events& seen) {
    int depth = 0;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        depth += seen[i] == "lock" ? 1 : -1;
        if (depth == 0 && i + 1 < seen.size())
            return false;
    }
    return depth == 0 && !seen.empty();
}

TEST_F(NetworkListLock, IsMadeWithTheListAndNotTaken) {
    const WifiNetworkList another;
    EXPECT_THAT(events, ElementsAre("create"));
}

TEST_F(NetworkListLock, IsTakenAndGivenBack) {
    list->lock();
    EXPECT_THAT(events, ElementsAre("lock"));
    list->unlock();
    EXPECT_THAT(events, ElementsAre("lock", "unlock"));
}

TEST_F(NetworkListLock, IsNotTakenForTheHead) {
    EXPECT_NE(list->getHead(), nullptr);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(NetworkListLock, IsHeldThroughoutEveryOtherOperation) {
    WifiNetwork twin;
    twin.setSsid("A");
    auto added = std::make_unique<WifiNetwork>();
    added->setSsid("B");
    struct Row {
        const char* name;
        std::function<void(WifiNetworkList&)> run;
    };
    const Row rows[] = {
        {"count", [](WifiNetworkList& l) { l.getCount(); }},
        {"contains", [](WifiNetworkList& l) { l.containsNetwork("A"); }},
        {"refuse", [&](WifiNetworkList& l) { l.addNetworkToList(&twin); }},
        {"add", [&](WifiNetworkList& l) { l.addNetworkToList(added.release()); }},
        {"remove unknown", [](WifiNetworkList& l) { l.removeNetworkFromList("C"); }},
        {"remove", [](WifiNetworkList& l) { l.removeNetworkFromList("A"); }},
        {"remove all", [](WifiNetworkList& l) { l.removeAllFromList(); }},
        {"is valid", [](WifiNetworkList& l) { l.isValid(); }},
        {"validate", [](WifiNetworkList& l) { l.validateDatabase(); }},
        {"invalidate", [](WifiNetworkList& l) { l.invalidateDatabase(); }},
    };
    for (const Row& row : rows) {
        events.clear();
        row.run(*list);
        EXPECT_TRUE(isHeldThroughout(events)) << row.name << testing::PrintToString(events);
    }
}

TEST_F(NetworkListLock, IsTakenAtTheEndAndNeverGivenBack) {
    list.reset();
    EXPECT_THAT(events, ElementsAre("lock", "destroy"));
}

} // namespace
