// The completions of fish, as it would write them into the command line.

#include "Shell.h"
#include "TextLines.h"

#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <vector>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

using Texts = std::vector<std::string>;

constexpr char FISH_CALL[] = R"(
exec fish --no-config -c '
. $CLI_SOURCES/completion/completion.fish
complete --escape -C "$LINE"')";

/// The completions of a command line, each the whole word.
Texts completions(const std::string& line) {
    return test::linesOf(
        test::outputOf(
            FISH_CALL,
            {{"CLI_SOURCES", CLI_SOURCES}, {"LINE", line}, {"HOME", "/tmp"}, {"LC_ALL", "C.UTF-8"}})
            .text);
}

class Fish : public testing::Test {
protected:
    void SetUp() override {
        if (!test::isInstalled("fish"))
            GTEST_SKIP() << "no fish (install the package fish)";
    }

    test::ListedHost m_host;
};

} // namespace

TEST_F(Fish, CompletesCommandsAliasesAndOptions) {
    EXPECT_THAT(completions("platwifi sh"), ElementsAre("show"));
    EXPECT_THAT(completions("platwifi l"), ElementsAre("list"));
    EXPECT_THAT(completions("platwifi help rem"), ElementsAre("remove"));
    EXPECT_THAT(completions("platwifi connect --t"), ElementsAre("--timeout"));
    EXPECT_THAT(completions("platwifi status --t"), IsEmpty());
}

TEST_F(Fish, WorksBehindOptionsAndAnAlias) {
    EXPECT_THAT(completions("platwifi -i wlan0 sh"), ElementsAre("show"));
    EXPECT_THAT(completions("platwifi --json rm hom"), ElementsAre("home"));
    EXPECT_THAT(completions("platwifi -i "), ElementsAre("wlan0"));
    EXPECT_THAT(completions("platwifi --interface=w"), ElementsAre("--interface=wlan0"));
    EXPECT_THAT(completions("platwifi --f"), ElementsAre("--full"));
}

TEST_F(Fish, CompletesNetworksInItsOwnNotation) {
    EXPECT_THAT(completions("platwifi show "),
                UnorderedElementsAre("home", R"(My\ Net)", R"(\$HOME)", R"(Bob\'s\ \"Net\")",
                                     R"(back\\slash)", "Caf\u00e9", "bang!all", "a=b@c",
                                     R"(`id`\;\&\|)", R"(bad\\xff)", R"(tilde~\(x\)\*)",
                                     R"(end\ )"));
    EXPECT_THAT(completions("platwifi show -- -"), ElementsAre("-dash"));
}

TEST_F(Fish, ContinuesInOpenQuotes) {
    EXPECT_THAT(completions("platwifi show 'My N"), ElementsAre("'My Net'"));
    EXPECT_THAT(completions("platwifi show \"My N"), ElementsAre("\"My Net\""));
    EXPECT_THAT(completions("platwifi show My\\ N"), ElementsAre(R"(My\ Net)"));
    EXPECT_THAT(completions("platwifi set home 'key_mgmt=WPA-N"),
                ElementsAre("'key_mgmt=WPA-NONE'"));
    EXPECT_THAT(completions("platwifi set home \"key_mgmt=WPA-N"),
                ElementsAre("\"key_mgmt=WPA-NONE\""));
}

TEST_F(Fish, CompletesPropertiesAndTheirWords) {
    EXPECT_THAT(completions("platwifi set home prio"), ElementsAre("priority="));
    EXPECT_THAT(completions("platwifi --json set 'My Net' key_mgmt=WPA-N"),
                ElementsAre("key_mgmt=WPA-NONE"));
}

TEST_F(Fish, CompletesFilesOnlyWhereTheProgramTakesThem) {
    ASSERT_EQ(mkdir("/tmp/keys files", 0700), 0);
    std::ofstream("/tmp/keys files/a key");
    EXPECT_THAT(completions("platwifi set home psk=@/tmp/keys"),
                ElementsAre(R"(psk=@/tmp/keys\ files/)"));
    EXPECT_THAT(completions("cat /tmp/keys"), Contains(R"(/tmp/keys\ files/)")) << "of fish itself";
    EXPECT_THAT(completions("platwifi set home /tmp/keys"), IsEmpty());
}

TEST_F(Fish, PrintsNothingWithoutASupplicant) {
    m_host.reset();
    EXPECT_THAT(completions("platwifi show "), IsEmpty());
}
