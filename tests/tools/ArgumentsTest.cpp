// What the arguments of the program ask for.

#include "commands/Arguments.h"

#include "commands/CommandNames.h"
#include "commands/CommandTable.h"
#include "values/Failure.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>
#include <set>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

using Words = std::vector<std::string>;

struct Arguments {
    std::string command;
    cli::Request request;
};

Arguments read(const Words& words) {
    std::vector<char*> arguments{const_cast<char*>("platwifi")};
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    const int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    Arguments asked;
    const cli::Command* const command = cli::readArguments(count, arguments.data(), asked.request);
    asked.command = command ? command->name : "";
    return asked;
}

std::string refusal(const Words& words) {
    try {
        return "accepted as " + read(words).command;
    } catch (const cli::WrongUse& error) {
        return error.what();
    }
}

// All commands, as an unknown word is answered with them.
std::string commandList() {
    std::string list;
    for (const std::string& name : cli::commandNames())
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

} // namespace

TEST(OptionsBeforeTheCommand, WorkLikeThoseBehindIt) {
    const Arguments scan = read({"-i", "wlan7", "scan"});
    EXPECT_EQ(scan.command, "scan");
    EXPECT_EQ(scan.request.iface, "wlan7");
    EXPECT_TRUE(read({"--json", "status"}).request.json);
    const Arguments connect = read({"--timeout", "60", "connect", "home"});
    EXPECT_EQ(connect.command, "connect");
    EXPECT_EQ(connect.request.timeout, 60u);
    EXPECT_EQ(connect.request.ssid, "home");
}

TEST(OptionsBeforeTheCommand, MayHaveTheirValueInTheSameWord) {
    EXPECT_EQ(read({"-iwlan7", "scan"}).request.iface, "wlan7");
    EXPECT_EQ(read({"--interface=wlan7", "scan"}).request.iface, "wlan7");
    EXPECT_EQ(read({"-t60", "connect", "home"}).request.timeout, 60u);
}

TEST(OptionsBeforeTheCommand, MayHaveAValueThatIsTheNameOfACommand) {
    const Arguments asked = read({"-i", "scan", "status"});
    EXPECT_EQ(asked.command, "status");
    EXPECT_EQ(asked.request.iface, "scan");
}

TEST(OptionsBeforeTheCommand, StandBesideOthersBehindIt) {
    const Arguments asked = read({"-i", "wlan7", "--json", "connect", "home", "-t", "5"});
    EXPECT_EQ(asked.request.iface, "wlan7");
    EXPECT_EQ(asked.request.timeout, 5u);
    EXPECT_TRUE(asked.request.json);
    EXPECT_EQ(asked.request.ssid, "home");
}

TEST(OptionsBeforeTheCommand, EndAtTwoHyphens) {
    EXPECT_EQ(read({"--", "show", "-x"}).request.ssid, "-x");
    EXPECT_EQ(read({"--json", "show", "--", "-x"}).request.ssid, "-x");
}

TEST(OptionsBeforeTheCommand, AreRefusedIfTheCommandDoesNotHaveThem) {
    for (const Words& words : {Words{"--full", "scan"}, {"scan", "--full"}})
        EXPECT_EQ(refusal(words), "scan has no option --full; the options are --help, -h, --json, "
                                  "--interface, -i; platwifi scan --help explains them");
    EXPECT_THAT(refusal({"-t", "5", "list"}), StartsWith("networks has no option -t"));
    EXPECT_THAT(refusal({"--version", "scan"}), StartsWith("scan has no option --version"));
}

TEST(OptionsBeforeTheCommand, AreCheckedLikeThoseBehindIt) {
    EXPECT_THAT(refusal({"--timeout", "0", "connect", "home"}), HasSubstr("1 to 3600"));
    EXPECT_THAT(refusal({"--json", "show"}), HasSubstr("SSID is required"));
}

// Else the words behind it could not be read before the command is known.
TEST(OptionsBeforeTheCommand, TakeAValueForAllCommandsOrForNone) {
    std::map<std::string, bool> takesValue;
    for (const cli::Command& command : cli::commands()) {
        for (const cli::Option& option : cli::optionsOf(command.name))
            EXPECT_EQ(takesValue.emplace(option.name, option.takesValue).first->second,
                      option.takesValue)
                << command.name << ' ' << option.name;
    }
    EXPECT_TRUE(takesValue.at("-i"));
    EXPECT_FALSE(takesValue.at("--json"));
}

TEST(AnOptionThatIsGivenTwice, IsRefusedWhereverItStands) {
    const std::string message = "--interface is given twice; platwifi status --help shows how it "
                                "is used";
    EXPECT_EQ(refusal({"-ia", "status", "-ib"}), message);
    EXPECT_EQ(refusal({"-ia", "-ib", "status"}), message);
    EXPECT_EQ(refusal({"status", "-ia", "--interface=b"}), message);
    EXPECT_THAT(refusal({"--json", "status", "--json"}), StartsWith("--json is given twice; "));
    EXPECT_THAT(refusal({"-t5", "connect", "x", "-t6"}), StartsWith("--timeout is given twice; "));
}

TEST(Aliases, AreTheirCommands) {
    EXPECT_EQ(read({"list", "--json"}).command, "networks");
    const Arguments asked = read({"--json", "rm", "home"});
    EXPECT_EQ(asked.command, "remove");
    EXPECT_EQ(asked.request.ssid, "home");
    EXPECT_TRUE(asked.request.json);
}

TEST(Aliases, AreNoNameOfAnotherCommand) {
    const Words names = cli::commandNames();
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    EXPECT_GT(names.size(), cli::commands().size());
}

TEST(AnUnknownCommand, IsAnsweredWithTheNearestAndWithAll) {
    EXPECT_EQ(refusal({"scna"}),
              "there is no command scna (did you mean scan?); the commands are " + commandList() +
                  "; platwifi --help explains them");
    EXPECT_THAT(refusal({"--json", "lsit"}), HasSubstr("lsit (did you mean list?)"));
    EXPECT_THAT(refusal({"conn", "home"}), HasSubstr("(did you mean connect?)"));
}

TEST(AnUnknownCommand, IsAnsweredWithAllIfNoneIsNear) {
    EXPECT_EQ(refusal({"wireless"}), "there is no command wireless; the commands are " +
                                         commandList() + "; platwifi --help explains them");
    EXPECT_THAT(refusal({""}), StartsWith("there is no command ''; "));
    EXPECT_THAT(refusal({"-"}), StartsWith("there is no command -; "));
    EXPECT_THAT(refusal({"wireless", "--help"}), StartsWith("there is no command wireless; "));
}

TEST(AnUnknownOption, IsAnsweredWithTheNearestAndWithThoseOfTheCommand) {
    EXPECT_EQ(
        refusal({"connect", "home", "--timeot=5"}),
        "connect has no option --timeot (did you mean --timeout?); the options are --help, -h, "
        "--timeout, -t, --json, --interface, -i; platwifi connect --help explains them");
    EXPECT_THAT(refusal({"rm", "home", "-x"}),
                AllOf(StartsWith("remove has no option -x; "), Not(HasSubstr("did you mean"))));
    EXPECT_THAT(refusal({"--jsno", "scan"}), StartsWith("scan has no option --jsno (did you mean "
                                                        "--json?); "));
}

TEST(AnUnknownOption, IsShownWhole) {
    EXPECT_THAT(refusal({"scan", "-json"}), StartsWith("scan has no option -json (did you mean "
                                                       "--json?); "));
    EXPECT_THAT(refusal({"-\u00e9"}), StartsWith("there is no option -\u00e9; "));
}

TEST(AnUnknownOption, IsNotMistakenForAnArgumentBehindTwoHyphens) {
    EXPECT_THAT(refusal({"status", "--", "--jsno"}),
                AllOf(HasSubstr("not expected: --jsno"), HasSubstr("platwifi status --help")));
}

TEST(AnUnknownOption, IsAnsweredWithThoseOfAllCommandsIfThereIsNoCommand) {
    EXPECT_THAT(refusal({"--versoin"}),
                AllOf(StartsWith("there is no option --versoin (did you mean --version?); "),
                      HasSubstr("--timeout"), HasSubstr("--full")));
    EXPECT_THAT(refusal({"--json", "--colour=red"}), StartsWith("there is no option --colour; "));
}

TEST(AMissingCommand, IsAnsweredWithTheHelp) {
    for (const Words& words : {Words{}, {"--json"}, {"-i"}, {"-i", "wlan0"}, {"-iwlan0"}, {"--"}})
        EXPECT_EQ(refusal(words), "a command is missing; platwifi --help lists them, and platwifi "
                                  "help COMMAND explains one");
}
