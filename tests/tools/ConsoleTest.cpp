#include "process/Console.h"

#include "Terminal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

using cli::Console;

namespace {

/// Standard output leads to a terminal of 57 columns.
class TheConsole : public testing::Test {
protected:
    TheConsole() {
        setenv("TERM", "xterm", 1);
        unsetenv("NO_COLOR");
        dup2(m_terminal.ownEnd(), STDOUT_FILENO);
    }
    ~TheConsole() override { dup2(m_before.number(), STDOUT_FILENO); }

    const platform::FileDescriptor m_before{dup(STDOUT_FILENO)};
    test::TerminalPair m_terminal{57};
};

TEST_F(TheConsole, IsAsWideAsTheTerminal) {
    EXPECT_TRUE(Console::of(1).isTerminal);
    EXPECT_EQ(Console::of(1).width, 57u);
}

TEST_F(TheConsole, OfUnknownWidthHas80Columns) {
    m_terminal.setWidth(0);
    EXPECT_EQ(Console::of(1).width, 80u);
}

TEST_F(TheConsole, HasColours) {
    EXPECT_TRUE(Console::of(1).hasColours);
    EXPECT_STREQ(Console::of(1).bold(), "\033[1m");
}

TEST_F(TheConsole, HasNoColoursWithNoColorSet) {
    setenv("NO_COLOR", "1", 1);
    EXPECT_FALSE(Console::of(1).hasColours);
    setenv("NO_COLOR", "", 1);
    EXPECT_TRUE(Console::of(1).hasColours) << "an empty NO_COLOR has no effect";
}

TEST_F(TheConsole, HasNoColoursOnADumbTerminal) {
    setenv("TERM", "dumb", 1);
    EXPECT_FALSE(Console::of(1).hasColours);
    unsetenv("TERM");
    EXPECT_FALSE(Console::of(1).hasColours);
    EXPECT_TRUE(Console::of(1).isTerminal);
    EXPECT_STREQ(Console::of(1).bold(), "");
}

TEST_F(TheConsole, OfAFileHasNeitherColoursNorWidth) {
    const platform::FileDescriptor nothing(open("/dev/null", O_WRONLY | O_CLOEXEC));
    dup2(nothing.number(), STDOUT_FILENO);
    EXPECT_FALSE(Console::of(1).isTerminal);
    EXPECT_FALSE(Console::of(1).hasColours);
    EXPECT_EQ(Console::of(1).width, Console::UNLIMITED);
}

} // namespace
