#include "NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr unsigned int FLAGS = 34; // 30 and four WEP keys

class NetworkDirty : public testing::TestWithParam<FlagRow> {
protected:
    bool mark(bool on) { return (network.*GetParam().set)(on); }
    bool get() const { return (network.*GetParam().get)(); }

    WifiNetwork network;
};

TEST_P(NetworkDirty, IsStoredAlone) {
    const FieldValues before = valuesOf(network);
    EXPECT_FALSE(get());
    EXPECT_TRUE(mark(true));
    EXPECT_TRUE(get());
    EXPECT_THAT(dirtyOf(network), ElementsAre(GetParam().name));
    EXPECT_EQ(valuesOf(network), before);
}

TEST_P(NetworkDirty, IsClearedAlone) {
    markAll(network);
    EXPECT_TRUE(mark(false));
    EXPECT_FALSE(get());
    EXPECT_EQ(dirtyOf(network).size(), FLAGS - 1);
    EXPECT_TRUE(mark(false)) << "true also without a change";
}

// NET-8
TEST_P(NetworkDirty, MakesTheNetworkDirtyExceptTheAnonymousIdentity) {
    mark(true);
    EXPECT_EQ(network.getNetworkDirty(),
              GetParam().field != platwifi::Field::EAP_ANONYMOUS_IDENTITY);
    mark(false);
    EXPECT_FALSE(network.getNetworkDirty());
}

INSTANTIATE_TEST_SUITE_P(Flags, NetworkDirty, testing::ValuesIn(flagRows()),
                         [](const auto& row) { return row.param.name; });

TEST(NetworkDirtyFlags, AreAllClearedWithoutAChangeOfValues) {
    WifiNetwork network;
    network.setSsid("abc");
    network.setPriority(5);
    markAll(network);
    const FieldValues before = valuesOf(network);
    EXPECT_EQ(dirtyOf(network).size(), FLAGS);
    EXPECT_TRUE(network.getNetworkDirty());
    network.cleanDirtyFields();
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    EXPECT_FALSE(network.getNetworkDirty());
    EXPECT_EQ(valuesOf(network), before);
}

// NET-8
TEST(NetworkDirtyFlags, DoNotCountAnAnonymousIdentityAlone) {
    WifiNetwork network;
    network.setSsid("abc");
    network.cleanDirtyFields();
    EXPECT_TRUE(network.setEAPAnonymousIdentity("x"));
    EXPECT_TRUE(network.getEAPAnonymousIdentityDirty());
    EXPECT_FALSE(network.getNetworkDirty());
    EXPECT_TRUE(network.getEAPAnonymousIdentityDirty()) << "asking changes nothing";
    network.setSsid("abcd");
    EXPECT_TRUE(network.getNetworkDirty());
}

TEST(NetworkWepKeyDirty, HasAFlagASlot) {
    for (unsigned char slot = 0; slot < 4; ++slot) {
        WifiNetwork network;
        EXPECT_TRUE(network.setWepKeyDirty(true, slot));
        EXPECT_TRUE(network.getWepKeyDirty(slot));
        EXPECT_THAT(dirtyOf(network), ElementsAre("wepKey" + std::to_string(slot)));
        EXPECT_TRUE(network.getNetworkDirty());
        EXPECT_TRUE(network.setWepKeyDirty(false, slot));
        EXPECT_THAT(dirtyOf(network), IsEmpty());
        EXPECT_FALSE(network.getNetworkDirty());
    }
}

TEST(NetworkWepKeyDirty, RefusesWhatIsNoSlot) {
    for (const int index : {4, 5, 128, 255}) {
        const auto slot = static_cast<unsigned char>(index);
        WifiNetwork network;
        EXPECT_FALSE(network.setWepKeyDirty(true, slot));
        EXPECT_FALSE(network.getWepKeyDirty(slot));
        EXPECT_THAT(dirtyOf(network), IsEmpty());
        markAll(network);
        EXPECT_FALSE(network.setWepKeyDirty(false, slot));
        EXPECT_FALSE(network.getWepKeyDirty(slot));
        EXPECT_EQ(dirtyOf(network).size(), FLAGS);
    }
}

} // namespace
