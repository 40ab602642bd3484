#include "AddedNetworks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using test::add;
using test::networkWithSsid;
using testing::ElementsAre;
using Names = std::vector<std::string>;

namespace {

void fill(WifiNetworkList& list, const Names& ssids) {
    for (const std::string& ssid : ssids)
        ASSERT_TRUE(add(list, ssid.c_str()));
    list.validateDatabase();
}

Names ssidsOf(WifiNetworkList& list) {
    Names ssids;
    list.lock();
    for (const WifiNetwork* network = list.getHead(); network; network = network->getNext())
        ssids.emplace_back(network->getSsid() ? network->getSsid() : "null");
    list.unlock();
    return ssids;
}

class NetworkList : public testing::Test {
protected:
    WifiNetworkList list;
};

TEST_F(NetworkList, StartsEmptyAndValid) {
    EXPECT_EQ(list.getHead(), nullptr);
    EXPECT_EQ(list.getCount(), 0U);
    EXPECT_TRUE(list.isValid());
    EXPECT_FALSE(list.containsNetwork("A"));
}

// NET-10
TEST_F(NetworkList, HoldsTheLastAddedFirst) {
    for (const char* ssid : {"A", "B", "C"})
        EXPECT_TRUE(add(list, ssid));
    EXPECT_STREQ(list.getHead()->getSsid(), "C");
    EXPECT_THAT(ssidsOf(list), ElementsAre("C", "B", "A"));
    EXPECT_EQ(list.getCount(), 3U);
    EXPECT_FALSE(list.isValid());
}

TEST_F(NetworkList, HoldsTheNetworkItselfAndEndsItsChain) {
    auto network = networkWithSsid("A");
    WifiNetwork other;
    network->setNext(&other);
    WifiNetwork* const added = network.release();
    EXPECT_TRUE(list.addNetworkToList(added));
    EXPECT_EQ(list.getHead(), added);
    EXPECT_EQ(added->getNext(), nullptr);
}

// NET-10
TEST_F(NetworkList, RefusesNullAndWhatItHas) {
    fill(list, {"A", "B"});
    for (const char* ssid : {"A", "B"}) {
        const auto rejected = networkWithSsid(ssid); // remains the caller's
        EXPECT_FALSE(list.addNetworkToList(rejected.get())) << ssid;
        EXPECT_EQ(rejected->getNext(), nullptr);
    }
    EXPECT_FALSE(list.addNetworkToList(list.getHead()));
    EXPECT_FALSE(list.addNetworkToList(nullptr));
    EXPECT_THAT(ssidsOf(list), ElementsAre("B", "A"));
    EXPECT_TRUE(list.isValid());
}

TEST_F(NetworkList, FindsSsidsByteForByte) {
    fill(list, {"home", "caf\xe9", "Home"});
    const struct {
        const char* ssid;
        bool found;
    } rows[] = {
        {"home", true},   {"Home", true}, {"caf\xe9", true},      {"HOME", false}, {"hom", false},
        {"home ", false}, {"caf", false}, {"caf\xc3\xa9", false}, {"", false},     {nullptr, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(list.containsNetwork(row.ssid), row.found) << (row.ssid ? row.ssid : "null");
    EXPECT_TRUE(list.isValid()) << "asking changes nothing";
}

// The lookup compares a hash of 32 bits first.
TEST_F(NetworkList, TellsSsidsWithTheSameHashApart) {
    fill(list, {"a@"});
    EXPECT_FALSE(list.containsNetwork("``"));
    fill(list, {"``"});
    EXPECT_TRUE(list.containsNetwork("``"));
    EXPECT_TRUE(list.containsNetwork("a@"));
    EXPECT_TRUE(list.removeNetworkFromList("a@"));
    EXPECT_THAT(ssidsOf(list), ElementsAre("``"));
}

TEST_F(NetworkList, FindsANetworkByItsPresentSsid) {
    fill(list, {"old"});
    WifiNetwork& network = *list.getHead();
    network.setSsid("new name");
    EXPECT_TRUE(list.containsNetwork("new name"));
    EXPECT_FALSE(list.containsNetwork("old"));
    network.setSsid(network.getSsid() + 4);
    EXPECT_TRUE(list.containsNetwork("name")) << "a part of the network's own text";
    network.setSsid(nullptr);
    EXPECT_FALSE(list.containsNetwork("name"));
    network.setSsid("name");
    EXPECT_TRUE(list.containsNetwork("name"));
}

TEST_F(NetworkList, TakesSsidsOfAnyLength) {
    const std::string ssids[] = {"a", std::string(32, 'b'), std::string(200, 'c')};
    for (const std::string& ssid : ssids) {
        EXPECT_TRUE(add(list, ssid.c_str()));
        EXPECT_FALSE(add(list, ssid.c_str()));
        EXPECT_TRUE(list.containsNetwork(ssid.c_str()));
        EXPECT_FALSE(list.containsNetwork((ssid + "x").c_str()));
    }
    EXPECT_EQ(list.getCount(), 3U);
    for (const std::string& ssid : ssids) {
        EXPECT_TRUE(list.removeNetworkFromList(ssid.c_str()));
        EXPECT_FALSE(list.containsNetwork(ssid.c_str()));
    }
    EXPECT_EQ(list.getCount(), 0U);
}

// NET-11
TEST_F(NetworkList, TakesAnEmptySsidOnceAndNeverFindsIt) {
    EXPECT_TRUE(add(list, ""));
    EXPECT_FALSE(add(list, ""));
    EXPECT_FALSE(list.containsNetwork(""));
    EXPECT_FALSE(list.removeNetworkFromList(""));
    EXPECT_THAT(ssidsOf(list), ElementsAre(""));
}

// NET-10
TEST_F(NetworkList, TakesAnUnsetSsidForNoOther) {
    EXPECT_TRUE(add(list, nullptr));
    EXPECT_TRUE(add(list, "A"));
    EXPECT_TRUE(add(list, nullptr));
    EXPECT_FALSE(list.containsNetwork(nullptr));
    EXPECT_FALSE(list.removeNetworkFromList(nullptr));
    EXPECT_TRUE(list.removeNetworkFromList("A"));
    EXPECT_THAT(ssidsOf(list), ElementsAre("null", "null"));
}

TEST_F(NetworkList, RemovesFromAnyPlace) {
    const struct {
        const char* ssid;
        Names left;
    } rows[] = {{"C", {"B", "A"}}, {"B", {"C", "A"}}, {"A", {"C", "B"}}};
    for (const auto& row : rows) {
        WifiNetworkList three;
        fill(three, {"A", "B", "C"});
        EXPECT_TRUE(three.removeNetworkFromList(row.ssid));
        EXPECT_EQ(ssidsOf(three), row.left);
        EXPECT_EQ(three.getCount(), 2U);
        EXPECT_FALSE(three.isValid());
    }
}

TEST_F(NetworkList, RemovesByTheNetworksOwnText) {
    fill(list, {"A"});
    EXPECT_TRUE(list.removeNetworkFromList(list.getHead()->getSsid()));
    EXPECT_EQ(list.getHead(), nullptr);
}

TEST_F(NetworkList, RemovesTheFirstOfTwoThatCameToTheSameName) {
    fill(list, {"A", "B", "C"});
    list.getHead()->setSsid("A");
    list.getHead()->setPriority(1);
    EXPECT_TRUE(list.removeNetworkFromList("A"));
    EXPECT_THAT(ssidsOf(list), ElementsAre("B", "A"));
}

// NET-12
TEST_F(NetworkList, ReportsAnUnknownSsidAsRemoved) {
    fill(list, {"A"});
    EXPECT_TRUE(list.removeNetworkFromList("B"));
    EXPECT_THAT(ssidsOf(list), ElementsAre("A"));
    EXPECT_FALSE(list.isValid());
}

// NET-11
TEST_F(NetworkList, RemovesNothingForNoName) {
    fill(list, {"A"});
    EXPECT_FALSE(list.removeNetworkFromList(""));
    EXPECT_FALSE(list.removeNetworkFromList(nullptr));
    EXPECT_THAT(ssidsOf(list), ElementsAre("A"));
    EXPECT_TRUE(list.isValid());
}

TEST_F(NetworkList, TakesARemovedSsidAgain) {
    fill(list, {"A", "B"});
    EXPECT_TRUE(list.removeNetworkFromList("A"));
    EXPECT_TRUE(add(list, "A"));
    EXPECT_THAT(ssidsOf(list), ElementsAre("A", "B"));
}

// NET-12
TEST_F(NetworkList, RemovesAllAndIsThenInvalidAlsoIfItWasEmpty) {
    for (const Names& ssids : {Names{"A", "B", "C"}, Names{}}) {
        fill(list, ssids);
        EXPECT_TRUE(list.removeAllFromList());
        EXPECT_EQ(list.getHead(), nullptr);
        EXPECT_EQ(list.getCount(), 0U);
        EXPECT_FALSE(list.isValid());
    }
}

TEST_F(NetworkList, IsValidatedByItsCallerAlone) {
    list.invalidateDatabase();
    list.invalidateDatabase();
    EXPECT_FALSE(list.isValid());
    list.validateDatabase();
    EXPECT_TRUE(list.isValid());
    EXPECT_TRUE(add(list, "A"));
    EXPECT_FALSE(list.isValid());
    list.validateDatabase();
    EXPECT_TRUE(list.isValid());
    list.getHead()->setPriority(5);
    EXPECT_TRUE(list.isValid()) << "the values of a network do not count";
}

TEST_F(NetworkList, CanBeUsedByTheHolderOfItsLock) {
    list.lock();
    list.lock();
    EXPECT_TRUE(add(list, "A"));
    EXPECT_TRUE(list.containsNetwork("A"));
    EXPECT_EQ(list.getCount(), 1U);
    EXPECT_TRUE(list.removeNetworkFromList("A"));
    EXPECT_TRUE(list.removeAllFromList());
    EXPECT_FALSE(list.isValid());
    list.validateDatabase();
    EXPECT_TRUE(list.isValid());
    list.unlock();
    list.unlock();
}

TEST_F(NetworkList, CanBeDestroyedByTheHolderOfItsLock) {
    for (int depth = 0; depth <= 2; ++depth) {
        WifiNetworkList destroyed;
        fill(destroyed, {"A", "B"});
        for (int i = 0; i < depth; ++i)
            destroyed.lock();
    }
}

} // namespace
