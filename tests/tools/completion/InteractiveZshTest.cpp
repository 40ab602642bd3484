// The TAB key in an interactive zsh. The tests look at the arguments that the program is then called with.

#include "InteractiveShell.h"
#include "Shell.h"

#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sys/stat.h>

namespace {

class TabInZsh : public testing::Test {
protected:
    void SetUp() override {
        if (!test::isInstalled("zsh"))
            GTEST_SKIP() << "no zsh (install the package zsh)";
        m_zsh = std::make_unique<test::InteractiveShell>(test::zsh());
    }

    std::string argumentsAfter(const std::string& keys) { return m_zsh->argumentsAfter(keys); }

    test::ListedHost m_host;
    std::unique_ptr<test::InteractiveShell> m_zsh;
};

} // namespace

TEST_F(TabInZsh, CompletesCommandsAliasesAndOptions) {
    EXPECT_EQ(argumentsAfter("platwifi conn\thome"), "<connect> <home>");
    EXPECT_EQ(argumentsAfter("platwifi li\t--js\tx"), "<list> <--json> <x>");
    EXPECT_EQ(argumentsAfter("platwifi help rem\tx"), "<help> <remove> <x>");
}

TEST_F(TabInZsh, WorksBehindOptionsAndAnAlias) {
    EXPECT_EQ(argumentsAfter("platwifi -i wl\tconn\tho\t--js\tx"),
              "<-i> <wlan0> <connect> <home> <--json> <x>");
    EXPECT_EQ(argumentsAfter("platwifi --json rm My\tx"), "<--json> <rm> <My Net> <x>");
    EXPECT_EQ(argumentsAfter("platwifi --interface=w\tsta\tx"), "<--interface=wlan0> <status> <x>");
}

TEST_F(TabInZsh, ListsTheCandidatesIfThereAreSeveral) {
    EXPECT_TRUE(m_zsh->shows("status", "platwifi s\t"));
    EXPECT_EQ(argumentsAfter("can"), "<scan>");
}

TEST_F(TabInZsh, CompletesNetworksWithSpecialCharacters) {
    EXPECT_EQ(argumentsAfter("platwifi show My\tx"), "<show> <My Net> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show My\\ \tx"), "<show> <My Net> <x>");
    EXPECT_EQ(argumentsAfter("platwifi set \\$\tx"), "<set> <$HOME> <x>");
    EXPECT_EQ(argumentsAfter("platwifi connect Bo\tx"), "<connect> <Bob's \"Net\"> <x>");
    EXPECT_EQ(argumentsAfter("platwifi remove back\tx"), "<remove> <back\\slash> <x>");
    EXPECT_EQ(argumentsAfter("platwifi disconnect C\tx"), "<disconnect> <Caf\u00e9> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show bang\tx"), "<show> <bang!all> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show \\`\tx"), "<show> <`id`;&|> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show bad\tx"), "<show> <bad\\xff> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show ti\tx"), "<show> <tilde~(x)*> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show a=\tx"), "<show> <a=b@c> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show en\tx"), "<show> <end > <x>");
    EXPECT_EQ(argumentsAfter("platwifi show -- -\tx"), "<show> <--> <-dash> <x>");
}

TEST_F(TabInZsh, ContinuesInQuotesAndClosesThem) {
    EXPECT_EQ(argumentsAfter("platwifi show \"My N\tx"), "<show> <My Net> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show 'My N\tx"), "<show> <My Net> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show \"Bob\tx"), "<show> <Bob's \"Net\"> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show 'Bob\tx"), "<show> <Bob's \"Net\"> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show 'back\\s\tx"), "<show> <back\\slash> <x>");
    EXPECT_EQ(argumentsAfter("platwifi show \"\\$H\tx"), "<show> <$HOME> <x>");
}

TEST_F(TabInZsh, CompletesAPropertyWithoutABlankAndItsWords) {
    EXPECT_EQ(argumentsAfter("platwifi set home prio\t5"), "<set> <home> <priority=5>");
    EXPECT_EQ(argumentsAfter("platwifi set home key_m\tWPA-N\tx"),
              "<set> <home> <key_mgmt=WPA-NONE> <x>");
}

TEST_F(TabInZsh, CompletesTheFileOfASecret) {
    mkdir("/tmp/zsh files", 0700);
    std::ofstream("/tmp/zsh files/a key");
    EXPECT_EQ(argumentsAfter("platwifi set home psk=@/tmp/zsh\t\tx"),
              "<set> <home> <psk=@/tmp/zsh files/a key> <x>");
}

TEST_F(TabInZsh, WorksBehindAnotherCommandAndAVariable) {
    EXPECT_EQ(argumentsAfter("true; NO_COLOR=1 platwifi show My\tx"), "<show> <My Net> <x>");
}
