#include "NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class NetworkText : public testing::TestWithParam<TextRow> {
protected:
    bool set(const char* text) { return (network.*GetParam().set)(text); }
    const char* get() const { return (network.*GetParam().get)(); }

    void startWith(const char* text) {
        set(text);
        network.cleanDirtyFields();
    }

    WifiNetwork network;
    const FieldValues own{GetParam().name};
};

TEST_P(NetworkText, StartsUnsetAndIsStoredAndMarkedWhenItChanges) {
    const FieldValues before = valuesOf(network);
    EXPECT_EQ(get(), nullptr);
    char given[] = "abc";
    EXPECT_TRUE(set(given));
    given[0] = 'x';
    EXPECT_STREQ(get(), "abc") << "a copy";
    EXPECT_EQ(dirtyOf(network), own) << "no flag but its own";
    EXPECT_THAT(changesSince(before, network), ElementsAre(own[0] + "=abc"));
    EXPECT_FALSE(set("abc"));
    EXPECT_EQ(dirtyOf(network), own) << "the mark stays";
}

// NET-1
TEST_P(NetworkText, ReportsNoChangeForTheSameText) {
    startWith("abc");
    const char* const before = get();
    char same[] = "abc";
    EXPECT_FALSE(set(same));
    EXPECT_FALSE(set(get()));
    EXPECT_EQ(get(), before);
    EXPECT_THAT(dirtyOf(network), IsEmpty());
}

TEST_P(NetworkText, IsComparedByteForByteAtAnyLength) {
    startWith("abc");
    const std::string longText(100000, 'w');
    for (const char* other : {"ABC", "ab", "abcd", "abc ", "\xff", longText.c_str()}) {
        EXPECT_TRUE(set(other)) << other;
        EXPECT_STREQ(get(), other);
        EXPECT_NE(get(), other) << "a copy";
    }
}

// NET-2
TEST_P(NetworkText, TakesNullAndEmptyByWhatWasThere) {
    const struct {
        const char* before;
        const char* text;
        bool changed;
        const char* after;
    } rows[] = {
        {nullptr, nullptr, false, nullptr},
        {nullptr, "", false, nullptr},
        {"abc", "", true, ""},
        {"abc", nullptr, true, nullptr},
    };
    for (const auto& row : rows) {
        startWith(row.before);
        EXPECT_EQ(set(row.text), row.changed) << row.before;
        EXPECT_STREQ(get(), row.after);
        EXPECT_EQ(dirtyOf(network), row.changed ? own : FieldValues{});
        startWith("something else");
        startWith(nullptr);
    }
}

TEST_P(NetworkText, KeepsAnEmptyTextUntilAnotherComes) {
    startWith("abc");
    startWith("");
    EXPECT_FALSE(set(""));
    EXPECT_FALSE(set(nullptr));
    EXPECT_STREQ(get(), "") << "null over an empty text is no change";
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    EXPECT_TRUE(set("abc"));
    EXPECT_STREQ(get(), "abc");
    EXPECT_EQ(dirtyOf(network), own);
}

TEST_P(NetworkText, TakesAPartOfItself) {
    startWith("abcdef");
    EXPECT_TRUE(set(get() + 3));
    EXPECT_STREQ(get(), "def");
    EXPECT_TRUE(set(get() + 3));
    EXPECT_STREQ(get(), "");
}

INSTANTIATE_TEST_SUITE_P(Fields, NetworkText, testing::ValuesIn(textRows()),
                         [](const auto& row) { return row.param.name; });

// NET-7
TEST(NetworkIpAddress, FollowsTheRuleOfTextsWithoutAFlag) {
    WifiNetwork network;
    EXPECT_EQ(network.getIpAddress(), nullptr);
    EXPECT_FALSE(network.setIpAddress(""));
    EXPECT_FALSE(network.setIpAddress(nullptr));
    EXPECT_TRUE(network.setIpAddress("192.0.2.7"));
    EXPECT_FALSE(network.setIpAddress("192.0.2.7"));
    EXPECT_STREQ(network.getIpAddress(), "192.0.2.7");
    EXPECT_TRUE(network.setIpAddress(""));
    EXPECT_STREQ(network.getIpAddress(), "");
    EXPECT_TRUE(network.setIpAddress("192.0.2.8"));
    EXPECT_TRUE(network.setIpAddress(nullptr));
    EXPECT_EQ(network.getIpAddress(), nullptr);
    EXPECT_THAT(dirtyOf(network), IsEmpty());
    EXPECT_FALSE(network.getNetworkDirty());
}

} // namespace
