// The TAB key in an interactive bash. The tests look at the arguments that the program is then called with.

#include "InteractiveShell.h"
#include "Shell.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

constexpr char FEWER_BREAKS[] = "COMP_WORDBREAKS=$' \\t\\n\"\\'><;|&('";
constexpr char HELPERS[] = "/usr/share/bash-completion/bash_completion";

class Tab : public testing::Test {
protected:
    test::ListedHost m_host;
    test::InteractiveShell m_bash{test::bash()};
};

/// With "=", ":" and "@" in COMP_WORDBREAKS, and without.
class TabAtAWordBreak : public testing::TestWithParam<const char*> {
protected:
    test::ListedHost m_host;
    test::InteractiveShell m_bash{test::bash(GetParam())};
};

} // namespace

TEST_F(Tab, CompletesACommandWithABlank) {
    EXPECT_EQ(m_bash.argumentsAfter("platwifi conn\thome"), "<connect> <home>");
}

TEST_F(Tab, WorksBehindOptionsAndAnAlias) {
    EXPECT_EQ(m_bash.argumentsAfter("platwifi -i wl\tconn\tho\t--js\t"),
              "<-i> <wlan0> <connect> <home> <--json>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi --json rm My\tx"), "<--json> <rm> <My Net> <x>");
}

TEST_F(Tab, CompletesNetworksWithSpecialCharacters) {
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show My\t--json"), "<show> <My Net> <--json>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi set \\$\tx"), "<set> <$HOME> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi connect Bo\tx"), "<connect> <Bob's \"Net\"> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi remove back\tx"), "<remove> <back\\slash> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi disconnect C\tx"), "<disconnect> <Caf\u00e9> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show bang\tx"), "<show> <bang!all> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show \\`\tx"), "<show> <`id`;&|> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show bad\tx"), "<show> <bad\\xff> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show ti\tx"), "<show> <tilde~(x)*> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show en\tx"), "<show> <end > <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show -- -\tx"), "<show> <--> <-dash> <x>");
}

TEST_F(Tab, ContinuesInQuotesAndClosesThem) {
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show \"My N\tx"), "<show> <My Net> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show 'My N\tx"), "<show> <My Net> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show \"Bob\tx"), "<show> <Bob's \"Net\"> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show 'Bob\tx"), "<show> <Bob's \"Net\"> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show \"bang\tx"), "<show> <bang!all> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show '$\tx"), "<show> <$HOME> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show My\\ \tx"), "<show> <My Net> <x>");
}

TEST_F(Tab, ListsTheCandidatesIfThereAreSeveral) {
    EXPECT_TRUE(m_bash.shows("status", "platwifi s\t"));
    EXPECT_EQ(m_bash.argumentsAfter("can"), "<scan>");
}

TEST_F(Tab, WorksBehindAnotherCommandAndAVariable) {
    EXPECT_EQ(m_bash.argumentsAfter("true; NO_COLOR=1 platwifi show My\tx"), "<show> <My Net> <x>");
}

TEST_F(Tab, WorksInTheMiddleOfALine) {
    const std::string left = "\002"; // moves the cursor back
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show My x" + left + left + "\t"),
              "<show> <My Net> <x>");
}

TEST_P(TabAtAWordBreak, CompletesAPropertyWithoutABlankAndItsWords) {
    EXPECT_EQ(m_bash.argumentsAfter("platwifi set home prio\t5"), "<set> <home> <priority=5>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi set home key_m\tWPA-N\tx"),
              "<set> <home> <key_mgmt=WPA-NONE> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi add new encryption=GCMP-\tx"),
              "<add> <new> <encryption=GCMP-256> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi set home \"key_mgmt=WPA-N\tx"),
              "<set> <home> <key_mgmt=WPA-NONE> <x>");
}

TEST_P(TabAtAWordBreak, CompletesNetworksWithSigns) {
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show a\tx"), "<show> <a=b@c> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show a=\tx"), "<show> <a=b@c> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi show a=b@\tx"), "<show> <a=b@c> <x>");
}

TEST_P(TabAtAWordBreak, CompletesTheFileOfASecret) {
    mkdir("/tmp/one file", 0700);
    std::ofstream("/tmp/one file/a:b=c key");
    const std::string called = "<set> <home> <psk=@/tmp/one file/a:b=c key> <x>";
    EXPECT_EQ(m_bash.argumentsAfter("platwifi set home psk=@/tmp/one\t\tx"), called);
    EXPECT_EQ(m_bash.argumentsAfter("platwifi set home psk=@/tmp/one\\ file/a:b=\tx"), called);
    EXPECT_EQ(m_bash.argumentsAfter("platwifi set home psk=@\"/tmp/one file/\tx"), called);
    EXPECT_EQ(m_bash.argumentsAfter("platwifi set home psk=\t-"), "<set> <home> <psk=->");
}

TEST_P(TabAtAWordBreak, CompletesTheInterface) {
    EXPECT_EQ(m_bash.argumentsAfter("platwifi status --interface=\tx"),
              "<status> <--interface=wlan0> <x>");
    EXPECT_EQ(m_bash.argumentsAfter("platwifi status -i \tx"), "<status> <-i> <wlan0> <x>");
}

INSTANTIATE_TEST_SUITE_P(WordBreaks, TabAtAWordBreak, testing::Values("", FEWER_BREAKS));

TEST(TabWithHelpers, WorksBesideTheCompletionOfTheSystem) {
    if (!std::filesystem::exists(HELPERS))
        GTEST_SKIP() << "no " << HELPERS << " (install the package bash-completion)";
    const test::ListedHost host;
    test::InteractiveShell bash(test::bash(std::string("sudo() { \"$@\"; }\n. ") + HELPERS));
    EXPECT_EQ(bash.argumentsAfter("platwifi set \"My\tkey_m\tWPA-N\tx"),
              "<set> <My Net> <key_mgmt=WPA-NONE> <x>");
    EXPECT_EQ(bash.argumentsAfter("sudo platwifi show My\tx"), "<show> <My Net> <x>");
}
