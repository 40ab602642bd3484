// The help of the program and of its commands.

#include "CommandFixture.h"
#include "commands/CommandNames.h"

using test::platwifi;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class Help : public test::CommandFixture {
protected:
    static std::string of(const test::Arguments& arguments) {
        return outputOf(platwifi(arguments));
    }
};

} // namespace

TEST_F(Help, IsThatOfTheOption) {
    const std::string help = of({"help"});
    EXPECT_THAT(help, HasSubstr("\nCommands:\n"));
    EXPECT_EQ(help, of({"--help"}));
    EXPECT_EQ(help, of({"--json", "--help"}));
}

TEST_F(Help, OfACommandIsThatOfItsOption) {
    for (const std::string& command : cli::commandNames()) {
        const std::string help = of({"help", command});
        EXPECT_THAT(help, HasSubstr("Usage: platwifi ")) << command;
        EXPECT_EQ(help, of({command, "--help"})) << command;
        EXPECT_EQ(help, of({"--help", command})) << command;
    }
}

TEST_F(Help, OfAnAliasIsThatOfItsCommand) {
    EXPECT_EQ(of({"help", "rm"}), of({"help", "remove"}));
    EXPECT_THAT(of({"help", "list"}), HasSubstr("Usage: platwifi networks "));
}

TEST_F(Help, ShowsAnAliasBesideItsCommand) {
    EXPECT_THAT(of({"help"}), AllOf(HasSubstr("\n  networks, list  "),
                                    HasSubstr("\n  remove, rm  "), HasSubstr("\n  scan  ")));
}

TEST_F(Help, IsRefusedForAnUnknownCommand) {
    expectFailure(platwifi({"help", "scna"}), "there is no command scna (did you mean scan?); ", 2);
    expectFailure(platwifi({"help", "scan", "show"}), "not expected: show; platwifi help --help",
                  2);
}

TEST_F(Help, TakesNoInterface) {
    expectFailure(platwifi({"-i", "wlan0", "help"}),
                  "help has no option -i; the options are "
                  "--help, -h; platwifi help --help",
                  2);
}

TEST_F(Help, NeedsNoSupplicant) {
    of({"help"});
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(Help, IsNamedWhereTheCommandIsMissing) {
    expectFailure(platwifi(test::Arguments{}), "platwifi help COMMAND", 2);
}
