#include "display/Text.h"

#include <gtest/gtest.h>

#include <clocale>

using cli::cellsOf;
using cli::cutTo;
using cli::isUtf8;
using cli::printable;

namespace {

struct Sample {
    const char* name;
    const char* text;
    unsigned int cells;
};

constexpr Sample SAMPLES[] = {
    {"Latin", "café", 4},
    {"Cyrillic", "Домашняя", 8},
    {"Chinese", "咖啡店", 6},
    {"Korean", "집", 2},
    {"Arabic", "مقهى", 4},
    {"Hebrew", "בית", 3},
    {"ThaiWithMarks", "ที่บ้าน", 4},
    {"CombiningMark", "e\u0301", 1},
    {"Emoji", "📶", 2},
    {"JoinedEmoji", "👩\u200D💻", 4},
    {"Nothing", "", 0},
};

class EveryScript : public testing::TestWithParam<Sample> {};

TEST_P(EveryScript, IsShownAsItIs) {
    EXPECT_EQ(printable(GetParam().text), GetParam().text);
    EXPECT_TRUE(isUtf8(GetParam().text));
}

TEST_P(EveryScript, TakesAsManyCellsAsOnATerminal) {
    EXPECT_EQ(cellsOf(GetParam().text), GetParam().cells);
}

TEST_P(EveryScript, DoesNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(printable(GetParam().text), GetParam().text);
    EXPECT_EQ(cellsOf(GetParam().text), GetParam().cells);
    std::setlocale(LC_ALL, before.c_str());
}

TEST_P(EveryScript, IsCutToAnyNumberOfCells) {
    const std::string text = GetParam().text;
    for (unsigned int cells = 0; cells < GetParam().cells; ++cells) {
        const std::string cut = cutTo(text, cells);
        EXPECT_LE(cellsOf(cut), cells);
        EXPECT_TRUE(isUtf8(cut));
        EXPECT_EQ(cut.size() >= 3 && cut.substr(cut.size() - 3) == "…", cells > 0) << cut;
    }
    EXPECT_EQ(cutTo(text, GetParam().cells), text);
}

INSTANTIATE_TEST_SUITE_P(Text, EveryScript, testing::ValuesIn(SAMPLES),
                         [](const auto& row) { return std::string(row.param.name); });

struct Escaped {
    const char* name;
    std::string bytes;
    const char* shown;
};

const Escaped ESCAPED[] = {
    {"Bell", "a\ab", R"(a\x07b)"},
    {"LineFeed", "a\nb", R"(a\x0ab)"},
    {"CarriageReturn", "\rb", R"(\x0db)"},
    {"TerminalSequence", "\033[2J", R"(\x1b[2J)"},
    {"Delete", "\177", R"(\x7f)"},
    {"Nul", std::string("a\0b", 3), R"(a\x00b)"},
    {"HighControlCharacter", "\u009b31m", R"(\xc2\x9b31m)"},
    {"LoneByte", "caf\xe9", R"(caf\xe9)"},
    {"CutCharacter", "\xe5\x92", R"(\xe5\x92)"},
    {"OverlongSlash", "\xc0\xaf", R"(\xc0\xaf)"},
    {"Surrogate", "\xed\xa0\x80", R"(\xed\xa0\x80)"},
    {"BeyondUnicode", "\xf4\x90\x80\x80", R"(\xf4\x90\x80\x80)"},
    {"RightToLeftOverride", "a\u202Eb", R"(a\xe2\x80\xaeb)"},
    {"Isolate", "\u2067", R"(\xe2\x81\xa7)"},
    {"RightToLeftMark", "\u200F", R"(\xe2\x80\x8f)"},
    {"LeftToRightMark", "\u200E", R"(\xe2\x80\x8e)"},
    {"ArabicLetterMark", "\u061C", R"(\xd8\x9c)"},
    {"LineSeparator", "\u2028", R"(\xe2\x80\xa8)"},
};

class TextThatIsNotPrintable : public testing::TestWithParam<Escaped> {};

TEST_P(TextThatIsNotPrintable, IsEscaped) {
    EXPECT_EQ(printable(GetParam().bytes), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Text, TextThatIsNotPrintable, testing::ValuesIn(ESCAPED),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Text, IsUtf8OnlyIfAllBytesAre) {
    for (const char* bytes : {"\xff", "a\xe5", "\xc0\xaf", "\xed\xa0\x80"})
        EXPECT_FALSE(isUtf8(bytes));
}

TEST(Text, KeepsTheMarksOfTheLastCharacterThatFits) {
    EXPECT_EQ(cutTo("e\u0301xyz", 2), "e\u0301…");
}

TEST(Text, LeavesACellEmptyWhereAWideCharacterDoesNotFit) {
    EXPECT_EQ(cutTo("咖啡店", 4), "咖…");
}

} // namespace
