#include "settings/replies/LineFields.h"
#include "settings/replies/Decimal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using platwifi::decimalOf;
using platwifi::LineFields;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> fieldsOf(const std::string& line, const char* separators = "\t") {
    LineFields fields(line.c_str(), separators);
    std::vector<std::string> result;
    while (const char* const field = fields.next())
        result.emplace_back(field);
    EXPECT_EQ(fields.next(), nullptr) << "still none";
    return result;
}

TEST(LineFields, AreWhatStandsBetweenSeparators) {
    EXPECT_THAT(fieldsOf("0\thome net\tany\t[CURRENT]"),
                ElementsAre("0", "home net", "any", "[CURRENT]"));
    EXPECT_THAT(fieldsOf("one"), ElementsAre("one"));
}

TEST(LineFields, AreNeverEmpty) {
    EXPECT_THAT(fieldsOf(""), IsEmpty());
    EXPECT_THAT(fieldsOf("\t\t\t"), IsEmpty());
    EXPECT_THAT(fieldsOf("0\t\tany\t[DISABLED]"), ElementsAre("0", "any", "[DISABLED]"));
    EXPECT_THAT(fieldsOf("\t\ta\t\tb\t\t"), ElementsAre("a", "b"));
}

TEST(LineFields, AreSplitAtEachOfTheSeparatorsThatAreGiven) {
    EXPECT_THAT(fieldsOf("7\thome net", "\t "), ElementsAre("7", "home", "net"));
    EXPECT_THAT(fieldsOf(" \t 7 \t", "\t "), ElementsAre("7"));
    EXPECT_THAT(fieldsOf("a b\tc", "\t"), ElementsAre("a b", "c"));
}

TEST(LineFields, AreTakenFromACopyOf256Characters) {
    const std::string line = std::string(255, 'a') + "\tb";
    EXPECT_THAT(fieldsOf(line), ElementsAre(std::string(255, 'a')));
    EXPECT_THAT(fieldsOf(std::string(300, 'c')), ElementsAre(std::string(256, 'c')));
    EXPECT_THAT(fieldsOf(std::string(254, 'd') + "\tef"), ElementsAre(std::string(254, 'd'), "e"));
    EXPECT_EQ(line.size(), 257U) << "the line itself stays";
}

TEST(Decimal, IsTheNumberThatATextBeginsWith) {
    struct Row {
        const char* text;
        int number;
    };
    constexpr int LOWEST = std::numeric_limits<int>::min();
    constexpr int HIGHEST = std::numeric_limits<int>::max();
    const Row rows[] = {
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
        {"4294967297", HIGHEST}, // not 1, whatever a long holds here
        {"99999999999999999999999", HIGHEST},
        {"-2147483648", LOWEST},
        {"-2147483649", LOWEST},
        {"-99999999999999999999999", LOWEST},
    };
    for (const Row& row : rows)
        EXPECT_EQ(decimalOf(row.text), row.number) << row.text;
}

} // namespace
