// The manual page, the completion and the program's own help agree.

#include "Shell.h"

#include <fstream>
#include <gmock/gmock.h>
#include <regex>
#include <set>
#include <sstream>

using testing::Contains;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace {

using Names = std::set<std::string>;

constexpr char PAGE[] = CLI_SOURCES "/platwifi.1";

std::string textOf(const char* path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

std::string output(const std::string& script) {
    return test::outputOf(script).text;
}

/// The text between a heading and the next occurrence of `end`.
std::string section(const std::string& text, const std::string& heading, const std::string& end) {
    const std::size_t start = text.find(heading);
    if (start == std::string::npos)
        return "";
    const std::size_t behind = start + heading.size();
    return text.substr(behind, text.find(end, behind) - behind);
}

/// The first group of all matches of the pattern in the text.
Names found(const std::string& text, const char* pattern) {
    const std::regex expression(pattern, std::regex::ECMAScript | std::regex::multiline);
    Names names;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
         ++match)
        names.insert((*match)[1]);
    return names;
}

std::string pageSection(const std::string& name) {
    return section(textOf(PAGE), "\n.Sh " + name + "\n", "\n.Sh ");
}

std::string commandsSection() {
    return section(output("platwifi --help"), "\nCommands:\n", "\n\n");
}

Names commandsOfHelp() {
    return found(commandsSection(), "^  ([a-z]+)[, ]");
}

Names aliasesOfHelp() {
    return found(commandsSection(), "^  [a-z]+, ([a-z]+) ");
}

std::string propertiesOfHelp() {
    return section(output("platwifi set --help"), "\nProperties:\n", "\nA secret");
}

Names namesCompletedBy(const std::string& words) {
    return found(output("platwifi --complete " + words), "^(.+?)[ =]?$");
}

} // namespace

TEST(ManualPage, HasTheCommandsOfTheProgramAndNoOther) {
    EXPECT_THAT(commandsOfHelp(), Contains("connect"));
    EXPECT_EQ(found(pageSection("COMMANDS"), "^\\.It Cm ([a-z]+)"), commandsOfHelp());
}

TEST(ManualPage, HasTheAliasesOfTheProgramAndNoOther) {
    EXPECT_THAT(aliasesOfHelp(), Contains("rm"));
    EXPECT_EQ(found(pageSection("COMMANDS"), "^\\.It Cm [a-z]+ , Cm ([a-z]+)"), aliasesOfHelp());
}

TEST(ManualPage, HasThePropertiesOfTheProgramAndNoOther) {
    const Names known = found(propertiesOfHelp(), "^  (\\w+) ");
    EXPECT_THAT(known, Contains("psk"));
    EXPECT_EQ(found(pageSection("PROPERTIES"), "^\\.It Cm (\\w+)"), known);
}

TEST(ManualPage, HasTheWordsOfProperties) {
    Names known;
    for (const std::string& line : found(propertiesOfHelp(), "^ {20,}(.*)$")) {
        const Names words = found(line, "([^ ]+)");
        known.insert(words.begin(), words.end());
    }
    EXPECT_THAT(known, Contains("WPA-PSK"));
    EXPECT_THAT(found(pageSection("PROPERTIES"), "^\\.Cm ([^ \n]+)"), IsSupersetOf(known));
}

TEST(ManualPage, HasTheOptionsOfEveryCommandAndNoOther) {
    Names known = found(output("platwifi --complete -"), "^-(.*) $");
    for (const std::string& command : commandsOfHelp()) {
        const Names own = found(output("platwifi --complete " + command + " -"), "^-(.*) $");
        known.insert(own.begin(), own.end());
    }
    EXPECT_EQ(found(pageSection("OPTIONS"), "(?:It| ,) Fl ([^ \n]+)"), known);
}

TEST(ManualPage, HasTheMembersThatAreOnlyReported) {
    for (const char* const name : {"ssid", "status", "strength", "channel"})
        EXPECT_THAT(pageSection("PROPERTIES"), testing::HasSubstr(std::string(".Em ") + name));
}

TEST(ManualPage, HasNoFaults) {
    if (test::outputOf("command -v mandoc").status == 0) {
        const auto lint = test::outputOf(std::string("mandoc -T lint -W warning ") + PAGE);
        EXPECT_EQ(lint.status, 0) << lint.text;
    } else if (test::outputOf("command -v groff").status == 0) {
        EXPECT_THAT(output(std::string("groff -ww -mdoc -z ") + PAGE), IsEmpty());
    } else {
        GTEST_SKIP() << "no mandoc (install the package mandoc)";
    }
}

TEST(Completion, HasTheCommandsAndAliasesOfTheProgramAndNoOther) {
    Names names = commandsOfHelp();
    const Names aliases = aliasesOfHelp();
    names.insert(aliases.begin(), aliases.end());
    EXPECT_EQ(namesCompletedBy("''"), names);
    EXPECT_EQ(namesCompletedBy("--json ''"), names);
}

TEST(Completion, HasThePropertiesOfTheProgramAndNoOther) {
    EXPECT_EQ(namesCompletedBy("set x ''"), found(propertiesOfHelp(), "^  (\\w+) "));
}

TEST(Completion, HasTheOptionsOfEveryCommandAndNoOther) {
    for (const std::string& command : commandsOfHelp()) {
        const std::string help =
            section(output("platwifi " + command + " --help"), "\nOptions:\n", "\n\n");
        EXPECT_EQ(namesCompletedBy(command + " -"), found(help, "(?:^  |,)(-[-a-z]+)")) << command;
    }
}
