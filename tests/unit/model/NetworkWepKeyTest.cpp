#include "NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using namespace test;
using testing::IsEmpty;

namespace {

class NetworkWepKey : public testing::TestWithParam<unsigned int> {
protected:
    bool set(const char* key) { return network.setWepKey(GetParam(), key); }
    const char* get() const { return network.getWepKey(GetParam()); }

    void startWith(const char* key) {
        set(key);
        network.cleanDirtyFields();
    }

    WifiNetwork network;
    const FieldValues own{"wepKey" + std::to_string(GetParam())};
};

TEST_P(NetworkWepKey, IsStoredInItsSlotAndMarked) {
    char key[] = "abcde";
    EXPECT_TRUE(set(key));
    key[0] = 'x';
    EXPECT_STREQ(get(), "abcde");
    EXPECT_EQ(dirtyOf(network), own);
    for (unsigned int slot = 0; slot < 4; ++slot)
        EXPECT_EQ(network.getWepKey(slot) != nullptr, slot == GetParam());
}

// NET-4
TEST_P(NetworkWepKey, FollowsRulesOfItsOwn) {
    const struct {
        const char* before;
        const char* key;
        const char* after;
        bool marked;
    } rows[] = {
        {nullptr, nullptr, nullptr, false}, {nullptr, "", nullptr, false},
        {nullptr, "abcde", "abcde", true},  {"abcde", "abcde", "abcde", false},
        {"abcde", "fghij", "fghij", true},  {"abcde", nullptr, nullptr, true},
        {"abcde", "", nullptr, false},
    };
    for (const auto& row : rows) {
        startWith(nullptr);
        startWith(row.before);
        EXPECT_TRUE(set(row.key)) << "changed or not";
        EXPECT_STREQ(get(), row.after);
        EXPECT_EQ(dirtyOf(network), row.marked ? own : FieldValues{}) << row.before << row.key;
    }
}

TEST_P(NetworkWepKey, TakesWhatItHasAndAPartOfIt) {
    startWith("abcdefghij");
    const char* const before = get();
    EXPECT_TRUE(set(get()));
    EXPECT_EQ(get(), before);
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    EXPECT_TRUE(set(get() + 5));
    EXPECT_STREQ(get(), "fghij");
    EXPECT_EQ(dirtyOf(network), own);
}

TEST_P(NetworkWepKey, KeepsItsMarkWhenNothingOrAnEmptyKeyFollows) {
    set("abcde");
    set("abcde");
    EXPECT_EQ(dirtyOf(network), own);
    set("");
    EXPECT_EQ(get(), nullptr);
    EXPECT_EQ(dirtyOf(network), own);
}

INSTANTIATE_TEST_SUITE_P(Slots, NetworkWepKey, testing::Values(0U, 1U, 2U, 3U));

// NET-5
TEST(NetworkWepKeys, RefuseWhatIsNoSlot) {
    WifiNetwork network;
    for (unsigned int slot = 0; slot < 4; ++slot)
        network.setWepKey(slot, "abcde");
    network.setWepIndex(3); // so that the memory behind the slots is not zero
    network.cleanDirtyFields();
    const auto before = valuesOf(network);
    for (const unsigned int index : {4U, 5U, 256U, std::numeric_limits<unsigned int>::max()}) {
        EXPECT_FALSE(network.setWepKey(index, "fghij")) << index;
        EXPECT_FALSE(network.setWepKey(index, "")) << index;
        EXPECT_FALSE(network.setWepKey(index, nullptr)) << index;
        EXPECT_EQ(network.getWepKey(index), nullptr) << index;
    }
    EXPECT_EQ(valuesOf(network), before);
    EXPECT_THAT(dirtyOf(network), IsEmpty());
}

} // namespace
