#include "display/Wrap.h"

#include "display/Text.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using cli::wrapped;
using testing::ElementsAre;

constexpr unsigned int NO_LIMIT = ~0U;

TEST(Wrap, LeavesATextThatFits) {
    EXPECT_THAT(wrapped("one two", NO_LIMIT), ElementsAre("one two"));
    EXPECT_THAT(wrapped("one two", 7), ElementsAre("one two"));
}

TEST(Wrap, BreaksAtBlanks) {
    EXPECT_THAT(wrapped("one two three", 6), ElementsAre("one", "two", "three"));
    EXPECT_THAT(wrapped("one two three", 7), ElementsAre("one two", "three"));
    EXPECT_THAT(wrapped("one two three", 9), ElementsAre("one two", "three"));
}

TEST(Wrap, MakesOneEmptyLineOfBlanks) {
    EXPECT_THAT(wrapped("", 10), ElementsAre(""));
    EXPECT_THAT(wrapped("  ", 10), ElementsAre(""));
}

TEST(Wrap, BreaksAWordThatIsLongerThanALine) {
    EXPECT_THAT(wrapped("a /run/wpa_supplicant b", 8),
                ElementsAre("a", "/run/wpa", "_supplic", "ant b"));
    EXPECT_THAT(wrapped("/run/wpa_supplicant", 8), ElementsAre("/run/wpa", "_supplic", "ant"));
}

TEST(Wrap, CountsCellsAndBreaksNoCharacter) {
    EXPECT_THAT(wrapped("äöü äöü", 3), ElementsAre("äöü", "äöü"));
    EXPECT_THAT(wrapped("äöü", 2), ElementsAre("äö", "ü"));
    EXPECT_THAT(wrapped("日本語", 4), ElementsAre("日本", "語"));
    EXPECT_THAT(wrapped("日本語", 5), ElementsAre("日本", "語"));
}

TEST(Wrap, PutsOneCharacterOnALineIfNoneFits) {
    EXPECT_THAT(wrapped("日本", 1), ElementsAre("日", "本"));
    EXPECT_THAT(wrapped("ab", 0), ElementsAre("a", "b"));
}

TEST(Wrap, IsNeverWiderThanTheLimit) {
    const std::string text = "put ctrl_interface=DIR=/run/wpa_supplicant GROUP=netdev into it";
    for (unsigned int cells = 1; cells < 80; ++cells) {
        std::string all;
        for (const std::string& line : wrapped(text, cells)) {
            EXPECT_LE(cli::cellsOf(line), cells);
            EXPECT_NE(line, "");
            all += line;
        }
        all.erase(std::remove(all.begin(), all.end(), ' '), all.end());
        EXPECT_EQ(all.size(), text.size() - 4) << "nothing is lost at " << cells;
    }
}

} // namespace
