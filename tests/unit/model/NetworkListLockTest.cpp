#include "AddedNetworks.h"

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

// These replace the platform's functions and record the operations on the mutex.
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
        test::add(*list, "A");
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

TEST_F(NetworkListLock, IsTakenAndReleased) {
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
    const struct {
        const char* name;
        std::function<void(WifiNetworkList&)> run;
    } rows[] = {
        {"count", [](WifiNetworkList& l) { l.getCount(); }},
        {"contains", [](WifiNetworkList& l) { l.containsNetwork("A"); }},
        {"refuse", [](WifiNetworkList& l) { test::add(l, "A"); }},
        {"add", [](WifiNetworkList& l) { test::add(l, "B"); }},
        {"remove unknown", [](WifiNetworkList& l) { l.removeNetworkFromList("C"); }},
        {"remove", [](WifiNetworkList& l) { l.removeNetworkFromList("A"); }},
        {"remove all", [](WifiNetworkList& l) { l.removeAllFromList(); }},
        {"is valid", [](WifiNetworkList& l) { l.isValid(); }},
        {"validate", [](WifiNetworkList& l) { l.validateDatabase(); }},
        {"invalidate", [](WifiNetworkList& l) { l.invalidateDatabase(); }},
    };
    for (const auto& row : rows) {
        events.clear();
        row.run(*list);
        EXPECT_TRUE(isHeldThroughout(events)) << row.name << testing::PrintToString(events);
    }
}

TEST_F(NetworkListLock, IsDestroyedWhileItIsHeld) {
    list.reset();
    EXPECT_THAT(events, ElementsAre("lock", "destroy"));
}

} // namespace
