// The completion function, called with the variables that bash sets for it.

#include "Shell.h"
#include "TextLines.h"

#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

using Texts = std::vector<std::string>;

constexpr char CALL[] = R"(
. "$CLI_SOURCES/completion/completion.bash"
compopt() { printf '<%s>\n' "$*"; }
COMP_LINE=$LEFT$REPLACED$RIGHT COMP_POINT=$((${#LEFT} + ${#REPLACED}))
_platwifi platwifi "$REPLACED" ''
[ ${#COMPREPLY[@]} = 0 ] || printf '%s\n' "${COMPREPLY[@]}")";

/// The completions of a command line.
/// @param left      the text before the part that readline replaces
/// @param replaced  that part, up to the cursor
/// @param right     the text behind the cursor
Texts replies(const std::string& left, const std::string& replaced, const std::string& right = "") {
    return test::linesOf(test::outputOf(CALL, {{"CLI_SOURCES", CLI_SOURCES},
                                               {"LEFT", left},
                                               {"REPLACED", replaced},
                                               {"RIGHT", right},
                                               {"LC_ALL", "C.UTF-8"}})
                             .text);
}

class BashFunction : public testing::Test {
protected:
    test::ListedHost m_host;
};

} // namespace

TEST_F(BashFunction, CompletesCommands) {
    EXPECT_THAT(replies("platwifi ", "s"), UnorderedElementsAre("status", "scan", "show", "set"));
}

TEST_F(BashFunction, CompletesOptionsOfACommand) {
    EXPECT_THAT(replies("platwifi connect ", "--t"), ElementsAre("--timeout"));
    EXPECT_THAT(replies("platwifi status ", "--t"), IsEmpty());
}

TEST_F(BashFunction, EscapesWhatIsSpecialToTheShell) {
    EXPECT_THAT(replies("platwifi show ", ""),
                UnorderedElementsAre("home", R"(My\ Net)", R"(\$HOME)", R"(Bob\'s\ \"Net\")",
                                     R"(back\\slash)", "Caf\u00e9", R"(bang\!all)", "a=b@c",
                                     R"(\`id\`\;\&\|)", R"(bad\\xff)", R"(tilde\~\(x\)\*)",
                                     R"(end\ )"));
}

TEST_F(BashFunction, ContinuesInOpenQuotes) {
    EXPECT_THAT(replies("platwifi show \"", "My N"), ElementsAre("My Net"));
    EXPECT_THAT(replies("platwifi show \"", "Bob's"), ElementsAre(R"(Bob's \"Net\"")"));
    EXPECT_THAT(replies("platwifi show \"", "\\$"), ElementsAre(R"(\$HOME)"));
    EXPECT_THAT(replies("platwifi show \"", "ba"),
                UnorderedElementsAre(R"(back\\slash)", R"(bang"\!"all)", R"(bad\\xff)"));
    EXPECT_THAT(replies("platwifi show '", "Bob"), ElementsAre(R"(Bob'\''s "Net")"));
    EXPECT_THAT(replies("platwifi show '", "$"), ElementsAre("$HOME"));
}

TEST_F(BashFunction, ReadsEveryWayOfQuotingBeforeTheCursor) {
    EXPECT_THAT(replies("platwifi show ", "My\\ N"), ElementsAre(R"(My\ Net)"));
    EXPECT_THAT(replies("platwifi show 'My'\"", " N"), ElementsAre(" Net"));
    EXPECT_THAT(replies("platwifi \"show\" ", "hom"), ElementsAre("home"));
}

TEST_F(BashFunction, IgnoresTheTextBehindTheCursor) {
    EXPECT_THAT(replies("platwifi show ", "ho", "use --json"), ElementsAre("home"));
}

TEST_F(BashFunction, LeavesOutTheTextBeforeAWordBreak) {
    EXPECT_THAT(replies("platwifi show a=", "b"), ElementsAre("b@c"));
    EXPECT_THAT(replies("platwifi show ", "a=b"), ElementsAre("a=b@c"));
    EXPECT_THAT(replies("platwifi set home key_mgmt=", "IEEE"), ElementsAre("IEEE8021X"));
    EXPECT_THAT(replies("platwifi set home ", "key_mgmt=IEEE"), ElementsAre("key_mgmt=IEEE8021X"));
}

TEST_F(BashFunction, PutsNoBlankBehindAnUnfinishedWord) {
    EXPECT_THAT(replies("platwifi set home ", "prio"), ElementsAre("<-o nospace>", "priority="));
    EXPECT_THAT(replies("platwifi set home psk=", ""),
                UnorderedElementsAre("<-o nospace>", "-", "@"));
    EXPECT_THAT(replies("platwifi set home psk=", "-"), ElementsAre("-"));
}

TEST_F(BashFunction, CompletesFilesOfSecretsAndCertificates) {
    ASSERT_EQ(mkdir("/tmp/my keys", 0700), 0);
    std::ofstream("/tmp/my keys/home key");
    EXPECT_THAT(replies("platwifi set home psk=@", "/tmp/my"),
                ElementsAre("<-o nospace>", R"(/tmp/my\ keys/)"));
    EXPECT_THAT(replies("platwifi set home \"", "psk=@/tmp/my keys/h"),
                ElementsAre("psk=@/tmp/my keys/home key"));
    EXPECT_THAT(replies("platwifi set home privateKeyFile=", "/tmp/my\\ keys/h"),
                ElementsAre(R"(/tmp/my\ keys/home\ key)"));
}

TEST_F(BashFunction, CompletesInterfaces) {
    EXPECT_THAT(replies("platwifi status -i ", ""), ElementsAre("wlan0"));
    EXPECT_THAT(replies("platwifi status --interface=", "wl"), ElementsAre("wlan0"));
}

TEST_F(BashFunction, PrintsNothingWithoutASupplicant) {
    m_host.reset();
    EXPECT_THAT(replies("platwifi show ", ""), IsEmpty());
}

TEST_F(BashFunction, UsesTheProgramOnThePathOrPrintsNothing) {
    EXPECT_THAT(replies("/nowhere/platwifi ", "stat"),
                ElementsAre("status")); // from the program on the path
    EXPECT_THAT(test::linesOf(test::outputOf(std::string("PATH=/nowhere\n") + CALL).text),
                IsEmpty());
}
