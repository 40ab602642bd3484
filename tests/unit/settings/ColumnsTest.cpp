#include "settings/replies/Columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>

using namespace platwifi;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(Columns, AreWhatStandsBetweenTabs) {
    EXPECT_THAT(columnsOf("0\thome net\tany\t[CURRENT]"),
                ElementsAre("0", "home net", "any", "[CURRENT]"));
    EXPECT_THAT(columnsOf("one"), ElementsAre("one"));
    EXPECT_THAT(columnsOf("a b\tc"), ElementsAre("a b", "c"));
}

TEST(Columns, MayBeEmpty) {
    EXPECT_THAT(columnsOf(""), ElementsAre(""));
    EXPECT_THAT(columnsOf("\t"), ElementsAre("", ""));
    EXPECT_THAT(columnsOf("0\t\tany\t"), ElementsAre("0", "", "any", ""));
}

TEST(Columns, AreAsLongAsTheLine) {
    const std::string ssid(300, 'c');
    EXPECT_THAT(columnsOf("0\t" + ssid + "\tany"), ElementsAre("0", ssid, "any"));
}

TEST(FilledColumns, AreThoseThatAreNotEmpty) {
    EXPECT_THAT(filledColumnsOf("0\thome net\tany\t[CURRENT]"),
                ElementsAre("0", "home net", "any", "[CURRENT]"));
    EXPECT_THAT(filledColumnsOf("one"), ElementsAre("one"));
    EXPECT_THAT(filledColumnsOf(""), IsEmpty());
    EXPECT_THAT(filledColumnsOf("\t\t\t"), IsEmpty());
    EXPECT_THAT(filledColumnsOf("0\t\tany\t[DISABLED]"), ElementsAre("0", "any", "[DISABLED]"));
    EXPECT_THAT(filledColumnsOf("\t\ta\t\tb\t\t"), ElementsAre("a", "b"));
}

TEST(FilledColumns, AreThoseOf256Characters) {
    const std::string line = std::string(255, 'a') + "\tb";
    EXPECT_THAT(filledColumnsOf(line), ElementsAre(std::string(255, 'a')));
    EXPECT_THAT(filledColumnsOf(std::string(300, 'c')), ElementsAre(std::string(256, 'c')));
    EXPECT_THAT(filledColumnsOf(std::string(254, 'd') + "\tef"),
                ElementsAre(std::string(254, 'd'), "e"));
}

TEST(Columns, CanBeABssidWithAColonOrAsTheWordAny) {
    for (const char* const column : {"any", "02:11:22:33:44:55", "a:b", ":"})
        EXPECT_TRUE(isBssidColumn(column)) << column;
    for (const char* const column : {"", "anything", "Any", "home", "[CURRENT]"})
        EXPECT_FALSE(isBssidColumn(column)) << column;
}

TEST(Decimal, IsTheNumberThatATextBeginsWith) {
    constexpr int LOWEST = std::numeric_limits<int>::min();
    constexpr int HIGHEST = std::numeric_limits<int>::max();
    const std::map<std::string, int> numbers = {
        {"0", 0},
        {"7", 7},
        {"007", 7},
        {"-30", -30},
        {"+5", 5},
        {"  12 MHz", 12},
        {"0x10", 0},
        {"", 0},
        {"any", 0},
        {"--1", 0},
        {"2147483647", HIGHEST},
        {"2147483648", HIGHEST},
        {"4294967297", HIGHEST}, // not 1, however many bits a long has
        {"99999999999999999999999", HIGHEST},
        {"-2147483648", LOWEST},
        {"-2147483649", LOWEST},
        {"-99999999999999999999999", LOWEST},
    };
    for (const auto& [text, number] : numbers)
        EXPECT_EQ(decimalOf(text.c_str()), number) << text;
}

} // namespace
