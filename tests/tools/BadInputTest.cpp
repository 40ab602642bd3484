// Command lines that fail: standard error has one line with the cause and the next step, and nothing is
// changed.

#include "CommandFixture.h"

#include <fcntl.h>
#include <sstream>
#include <unistd.h>

using platform::FileDescriptor;
using test::Arguments;
using test::Ending;
using test::platwifi;
using test::WRONG_USE;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr int FAILED = 1;

struct Refusal {
    const char* name;
    const char* arguments; ///< with one blank between two; null for none
    int status;
    const char* cause;
    const char* next;
};

const Refusal REFUSALS[] = {
    {"NoCommand", nullptr, WRONG_USE, "a command is missing", "platwifi --help"},
    {"UnknownCommand", "foo", WRONG_USE, "there is no command foo", "platwifi --help"},
    {"EmptyCommand", "", WRONG_USE, "there is no command", "platwifi --help"},
    {"CommandWithAnEscape", "\033[2J", WRONG_USE, R"(no command \x1b[2J)", "platwifi --help"},
    {"UnknownOption", "--colour", WRONG_USE, "there is no option --colour", "--help"},
    {"UnknownOptionOfACommand", "status --colour", WRONG_USE, "--colour", "status --help"},
    {"TooManyArguments", "status home", WRONG_USE, "not expected: home", "status --help"},
    {"MissingSsid", "show", WRONG_USE, "SSID is required", "platwifi show --help"},
    {"MissingAssignment", "set home", WRONG_USE, "NAME=VALUE is required", "set --help"},
    {"NoAssignment", "set home psk", WRONG_USE, "'psk' is no NAME=VALUE", "set --help"},
    {"UnknownProperty", "set home colour=red", WRONG_USE, "no property colour", "set --help"},
    {"ReportedProperty", "set home status=enabled", WRONG_USE, "cannot be set", "reports"},
    {"NumberOutOfRange", "set home index=4", WRONG_USE, "index takes", "from 0 to 3"},
    {"UnknownWord", "set home key_mgmt=WPA9", WRONG_USE, "key_mgmt takes", "WPA-PSK"},
    {"PropertyTwice", "set home priority=1 priority=1", WRONG_USE, "twice", "leave out"},
    {"GoodEditBeforeABadOne", "set home priority=1 index=9", WRONG_USE, "index", "0 to 3"},
    {"MissingFile", "set home psk=@/tmp/missing", FAILED, "/tmp/missing: No such", "another"},
    {"FolderForAFile", "set home psk=@/tmp", FAILED, "/tmp: Is a directory", "another file"},
    {"NoInput", "set home psk=-", FAILED, "no psk on standard input", "write it there"},
    {"UnknownNetwork", "set work priority=1", FAILED, "no network work", "platwifi networks"},
    {"UnknownNetworkToShow", "show work", FAILED, "no network work", "platwifi networks"},
    {"UnknownNetworkToConnect", "connect work", FAILED, "no network work", "platwifi networks"},
    {"UnknownNetworkToDisconnect", "disconnect work", FAILED, "no network work",
     "platwifi networks"},
    {"UnknownNetworkToRemove", "remove work", FAILED, "no network work", "platwifi networks"},
    {"AddedAlready", "add home key_mgmt=NONE", FAILED, "configured already", "platwifi set"},
    {"AddedWithoutSecurity", "add cafe", WRONG_USE, "needs a key", "key_mgmt=NONE"},
    {"AddedWithAnEmptyKey", "add cafe psk=", WRONG_USE, "psk takes 8 to 63", "psk takes"},
    {"NotConnected", "disconnect", FAILED, "no connection to end", "platwifi status"},
    {"EmptySsid", "show ", WRONG_USE, "1 to 32 bytes, and this one has 0", "platwifi scan"},
    {"EmptySsidToDisconnect", "disconnect ", WRONG_USE, "1 to 32 bytes", "platwifi networks"},
    {"EmptySsidToAdd", "add  key_mgmt=NONE", WRONG_USE, "1 to 32 bytes", "platwifi scan"},
    {"LongSsid", "show 33-bytes-33-bytes-33-bytes-33-byt", WRONG_USE, "this one has 33",
     "platwifi networks"},
    {"LongSsidToAdd", "add 33-bytes-33-bytes-33-bytes-33-byt key_mgmt=NONE", WRONG_USE,
     "this one has 33", "platwifi"},
    {"EmptyInterface", "status -i ", WRONG_USE, "--interface", "platwifi adapters"},
    {"LongInterface", "status -i sixteen-letters-", WRONG_USE, "15 characters", "ip link"},
    {"InterfaceNotServed", "status -i eth0", FAILED, "does not serve eth0", "adapters"},
    {"InterfaceNotServedToList", "adapters -i eth0", FAILED, "not serve eth0", "adapters"},
    {"InterfaceTwice", "status -ia -ib", WRONG_USE, "--interface", "status --help"},
    {"TimeoutOfZero", "connect home -t 0", WRONG_USE, "1 to 3600", "connect --help"},
    {"TimeoutTooLong", "connect home -t 3601", WRONG_USE, "1 to 3600", "--help"},
    {"TimeoutInLetters", "connect home -t abc", WRONG_USE, "seconds, 1 to", "--help"},
    {"PartOfASecond", "connect home --timeout=1.5", WRONG_USE, "1 to 3600", "--help"},
    {"NegativeTimeout", "connect home --timeout=-1", WRONG_USE, "1 to 3600", "--help"},
    {"MissingTimeout", "connect home -t", WRONG_USE, "--timeout", "connect --help"},
};

Arguments argumentsIn(const char* text) {
    Arguments arguments;
    std::istringstream stream(text ? std::string(text) + ' ' : "");
    for (std::string argument; std::getline(stream, argument, ' ');)
        arguments.push_back(argument);
    return arguments;
}

class FailingCommand : public test::CommandFixture {};

class EachBadInput : public test::CommandFixture, public testing::WithParamInterface<Refusal> {};

TEST_P(EachBadInput, IsReportedInOneLineAndChangesNothing) {
    serve({"home"});
    const Ending ending = platwifi(argumentsIn(GetParam().arguments));
    expectFailure(ending, GetParam().cause, GetParam().status);
    EXPECT_THAT(ending.err, HasSubstr(GetParam().next));
    EXPECT_THAT(changes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Refusals, EachBadInput, testing::ValuesIn(REFUSALS),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FailingCommand, RefusesASecretOnTheCommandLineWithoutRepeatingIt) {
    serve({"home"});
    for (const char* name : {"psk", "key1", "eapPassword", "privateKeyPassword2"}) {
        const Ending ending = platwifi({"set", "home", name + std::string("=correct-horse")});
        expectFailure(ending, name + std::string("=- reads it from standard input"), WRONG_USE);
        EXPECT_THAT(ending.err, Not(HasSubstr("correct")));
    }
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FailingCommand, RefusesABadSecretWithoutRepeatingIt) {
    serve({"home"});
    const Ending ending = platwifi({"set", "home", "psk=-"}, "correct\n");
    expectFailure(ending, "psk takes 8 to 63 characters", WRONG_USE);
    EXPECT_THAT(ending.err, Not(HasSubstr("correct")));
    EXPECT_THAT(changes(), IsEmpty());
}

// The client fails in the same way without a supplicant and without a control socket.
TEST_F(FailingCommand, ReportsAMissingSupplicant) {
    host.on({"*"}).printsError("Failed to connect to non-global ctrl_ifname: (nil)\n").exits(255);
    for (const char* command : {"adapters", "status", "scan", "networks", "roam", "xml", "dump"}) {
        SCOPED_TRACE(command);
        expectFailure(platwifi({command}), "; ");
    }
}

TEST_F(FailingCommand, ReportsAMissingClient) {
    unlink((host.folder() + "/wpa_cli").c_str());
    const Ending ending = platwifi({"status"});
    EXPECT_EQ(ending.status, FAILED);
    expectOneLine(ending, "; ");
}

TEST_F(FailingCommand, RefusesToEditNetworksOfAnotherInterface) {
    host.on({"interface"}).prints("Selected\nAvailable interfaces:\nwlan0\nwlan1\n");
    serve({"home"});
    expectFailure(platwifi({"set", "home", "priority=1", "-i", "wlan1"}),
                  "the networks are those of wlan0");
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FailingCommand, ReportsAClosedStandardOutput) {
    serve({"home"});
    for (const Arguments& arguments :
         {Arguments{"status"}, {"networks"}, {"dump"}, {"xml"}, {"--help"}, {"--version"}}) {
        const Ending ending = platwifi(arguments, test::Streams{test::CAPTURED, test::CLOSED});
        SCOPED_TRACE(arguments[0]);
        expectFailure(ending, "the result cannot be written");
        EXPECT_THAT(ending.err, HasSubstr("see where standard output leads to"));
    }
}

TEST_F(FailingCommand, ReportsAFullDisk) {
    const FileDescriptor full(open("/dev/full", O_WRONLY | O_CLOEXEC));
    serve({"home"});
    for (const Arguments& arguments :
         {Arguments{"status"}, {"xml", "--full"}, {"dump"}, {"set", "--help"}}) {
        SCOPED_TRACE(arguments[0]);
        expectFailure(platwifi(arguments, test::Streams{test::CAPTURED, full.number()}),
                      "the result cannot be written");
    }
}

TEST_F(FailingCommand, IsSilentIfTheReaderOfThePipeIsGone) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    close(ends[0]);
    const FileDescriptor pipe(ends[1]);
    serve({"home"});
    for (const Arguments& arguments :
         {Arguments{"status"}, {"xml", "--full"}, {"dump"}, {"set", "--help"}}) {
        const Ending ending = platwifi(arguments, test::Streams{test::CAPTURED, pipe.number()});
        EXPECT_EQ(ending.status, FAILED) << arguments[0];
        EXPECT_EQ(ending.err, "") << arguments[0];
    }
}

TEST_F(FailingCommand, WorksWithStandardInputAndErrorClosed) {
    serve({"home"});
    const test::Streams closed{test::CLOSED, test::CAPTURED, test::CLOSED};
    EXPECT_THAT(outputOf(platwifi({"networks"}, closed)), HasSubstr("home"));
    EXPECT_EQ(platwifi({"set", "home", "psk=-"}, closed).status, FAILED);
    EXPECT_THAT(changes(), IsEmpty());
}

} // namespace
