#include "NetworkRows.h"

#include "model/WifiTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <type_traits>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr unsigned int LARGEST = std::numeric_limits<unsigned int>::max();

class NetworkNumber : public testing::TestWithParam<NumberRow> {
protected:
    bool set(unsigned int number) { return (network.*GetParam().set)(number); }
    unsigned int get() const { return (network.*GetParam().get)(); }

    WifiNetwork network;
    const FieldValues own{GetParam().name};
};

TEST_P(NetworkNumber, StartsAtZeroAndIsStoredAndMarkedWhenItChanges) {
    const FieldValues before = valuesOf(network);
    EXPECT_EQ(get(), 0U);
    EXPECT_FALSE(set(0));
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    EXPECT_TRUE(set(5));
    EXPECT_EQ(get(), 5U);
    EXPECT_EQ(dirtyOf(network), own) << "no flag but its own";
    EXPECT_THAT(changesSince(before, network), ElementsAre(own[0] + "=5"));
}

// NET-1
// NET-5
TEST_P(NetworkNumber, IsAnyNumberAndTheSameOneIsNoChange) {
    for (const unsigned int number : {LARGEST, LARGEST - 1, 0x80000000U, 0x100U, 1U, 0U}) {
        EXPECT_TRUE(set(number)) << number;
        EXPECT_EQ(get(), number);
        EXPECT_FALSE(set(number)) << number;
        EXPECT_EQ(dirtyOf(network), own) << "the mark stays";
        network.cleanDirtyFields();
        EXPECT_FALSE(set(number)) << number;
        EXPECT_THAT(dirtyOf(network), IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Fields, NetworkNumber, testing::ValuesIn(test::numberRows()),
                         [](const auto& row) { return row.param.name; });

TEST(NetworkMode, IsUnknownUntilItIsSetAndHasEightBits) {
    WifiNetwork network;
    EXPECT_EQ(network.getNetworkMode(), NETWORK_MODE_UNKNOWN);
    EXPECT_FALSE(network.setNetworkMode(NETWORK_MODE_UNKNOWN));
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    for (const std::uint8_t mode : std::initializer_list<std::uint8_t>{NETWORK_MODE_MANAGED, 255}) {
        EXPECT_TRUE(network.setNetworkMode(mode));
        EXPECT_EQ(network.getNetworkMode(), mode);
        EXPECT_FALSE(network.setNetworkMode(mode));
        EXPECT_THAT(dirtyOf(network), ElementsAre("networkMode"));
    }
}

// NET-5
TEST(NetworkWepIndex, IsOneOfFourSlots) {
    WifiNetwork network;
    EXPECT_EQ(network.getWepIndex(), 0U);
    EXPECT_FALSE(network.setWepIndex(0)) << "no change";
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    for (const unsigned int slot : {1U, 2U, 0U, 3U}) {
        network.cleanDirtyFields();
        EXPECT_TRUE(network.setWepIndex(slot)) << slot;
        EXPECT_FALSE(network.setWepIndex(slot)) << slot;
        EXPECT_EQ(network.getWepIndex(), slot);
        EXPECT_THAT(dirtyOf(network), ElementsAre("wepIndex"));
    }
    network.cleanDirtyFields();
    for (const unsigned int index : {4U, 256U, 257U, LARGEST}) {
        EXPECT_FALSE(network.setWepIndex(index)) << index;
        EXPECT_EQ(network.getWepIndex(), 3U);
        EXPECT_THAT(dirtyOf(network), IsEmpty());
    }
}

// NET-3
TEST(NetworkSsidBroadcasted, IsMarkedEachTimeItIsSet) {
    WifiNetwork network;
    EXPECT_EQ(network.getSsidBroadcasted(), 0U);
    for (const bool value : {false, false, true, true, false}) {
        network.cleanDirtyFields();
        EXPECT_TRUE(network.setSsidBroadcasted(value));
        EXPECT_EQ(network.getSsidBroadcasted(), value ? 1U : 0U);
        EXPECT_THAT(dirtyOf(network), ElementsAre("ssidBroadcasted"));
        EXPECT_TRUE(network.getNetworkDirty());
    }
}

// NET-7
TEST(ReportedNumbers, AreStoredEachTimeAndNeverMarked) {
    WifiNetwork network;
    for (const unsigned int number : {7U, 7U, LARGEST, 0U, 0U}) {
        EXPECT_TRUE(network.setNetworkStatus(number));
        EXPECT_EQ(network.getNetworkStatus(), number);
        EXPECT_TRUE(network.setStrength(number / 2));
        EXPECT_EQ(network.getStrength(), number / 2);
    }
    for (const std::uint8_t id : std::initializer_list<std::uint8_t>{0, 1, 1, 255}) {
        EXPECT_TRUE(network.setNetworkId(id));
        EXPECT_EQ(network.getNetworkId(), id);
    }
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    EXPECT_FALSE(network.getNetworkDirty());
}

TEST(NetworkLink, IsSetAndNotOwned) {
    WifiNetwork last;
    {
        WifiNetwork first;
        EXPECT_EQ(first.getNext(), nullptr);
        EXPECT_TRUE(first.setNext(&last));
        EXPECT_EQ(first.getNext(), &last);
        EXPECT_FALSE(first.getNetworkDirty());
    }
    last.setSsid("still valid");
    EXPECT_STREQ(last.getSsid(), "still valid");
}

TEST(Network, StartsUnknownAndClean) {
    const WifiNetwork network;
    EXPECT_EQ(network.getNetworkStatus(), NETWORK_STATUS_UNKNOWN);
    for (const std::string& value : valuesOf(network)) {
        const std::string start = value.substr(value.find('=') + 1);
        EXPECT_TRUE(start == "null" || start == "0" || value == "networkMode=2" || value == "pmf=3")
            << value;
    }
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    EXPECT_FALSE(network.getNetworkDirty());
}

TEST(Network, IsAPlainClassThatIsNotCopied) {
    EXPECT_FALSE(std::is_polymorphic_v<WifiNetwork>);
    EXPECT_FALSE(std::is_copy_constructible_v<WifiNetwork>);
    EXPECT_FALSE(std::is_copy_assignable_v<WifiNetwork>);
}

} // namespace
