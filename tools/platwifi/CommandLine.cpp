#include "CommandLine.h"

#include "CommandTable.h"
#include "Failure.h"
#include "display/Text.h"
#include "host/Ssid.h"
#include "process/OtherProcesses.h"
#include "process/StandardStreams.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <iostream>

namespace cli {
namespace {

constexpr std::size_t OPTION_COLUMN = 26;
constexpr int LONGEST_PATIENCE = 3600;
constexpr std::size_t MOST_DIGITS = 4;

int tell(const std::string& message, int status) {
    std::cerr << "platwifi: " << message << '\n';
    return status;
}

bool isPatience(const std::string& text) {
    const bool isNumber =
        text.size() <= MOST_DIGITS && text.find_first_not_of("0123456789") == std::string::npos;
    const int seconds = isNumber ? std::atoi(text.c_str()) : 0;
    return seconds > 0 && seconds <= LONGEST_PATIENCE;
}

// Says what is wrong with an option's value; nothing where it is right.
std::string problemOfPatience(const std::string& text) {
    return isPatience(text) ? "" : "it takes seconds, 1 to " + std::to_string(LONGEST_PATIENCE);
}

std::string problemOfInterface(const std::string& text) {
    return text.empty() ? "it takes a name; platwifi adapters lists them" : "";
}

void addOptions(CLI::App& app, const Command& command, Request& request) {
    if (has(command, SSID))
        app.add_option("SSID", request.ssid, "name of the network; after -- if it begins with -")
            ->required();
    if (has(command, MAYBE_SSID))
        app.add_option("SSID", request.ssid, "name of the network (the current one)");
    if (has(command, ASSIGNMENTS))
        app.add_option("NAME=VALUE", request.assignments, "properties")->required();
    if (has(command, MAYBE_ASSIGNMENTS))
        app.add_option("NAME=VALUE", request.assignments, "properties");
    if (has(command, PATIENCE)) {
        app.add_option("-t,--timeout", request.patience, "how long to wait (30)")
            ->type_name("SECONDS")
            ->check(problemOfPatience);
    }
    if (has(command, FULL))
        app.add_flag("--full", request.full, "every network with its security");
    if (has(command, JSON))
        app.add_flag("--json", request.json, "print JSON");
    app.add_option("-i,--interface", request.iface, "interface (the first one listed)")
        ->type_name("NAME")
        ->check(problemOfInterface);
}

void addCommands(CLI::App& app, Request& request) {
    for (const Command& command : commands()) {
        CLI::App* const subcommand = app.add_subcommand(command.name, command.help);
        subcommand->footer(command.more())->group("Commands");
        addOptions(*subcommand, command, request);
    }
}

const Command& chosen(const CLI::App& app) {
    const std::string name = app.get_subcommands().front()->get_name();
    for (const Command& command : commands()) {
        if (name == command.name)
            return command;
    }
    throw WrongUse("there is no command " + name);
}

void setWords(CLI::FormatterBase& help) {
    help.column_width(OPTION_COLUMN);
    help.label("Positionals", "Arguments");
    help.label("SUBCOMMAND", "COMMAND");
    help.label("REQUIRED", ""); // the line of usage tells it
    help.label("TEXT", "");     // what an argument is called tells it
}

void setUp(CLI::App& app, Request& request) {
    setWords(*app.get_formatter());
    app.set_version_flag("--version", PLATWIFI_VERSION);
    app.footer(generalHelp());
    app.require_subcommand(1);
    addCommands(app, request);
}

// The result is written out: what became of that is more than what the command says.
int finish(Status status) {
    try {
        flushOutput();
        return status;
    } catch (const Failure& error) {
        return error.what()[0] == '\0' ? FAILED : tell(error.what(), FAILED);
    }
}

// Where an SSID was given, it is one.
void checkSsid(const CLI::App& app, const Request& request) {
    const CLI::Option* const argument = app.get_subcommands().front()->get_option_no_throw("SSID");
    if (argument && argument->count() > 0)
        requireSsid(request.ssid);
}

// A key that interrupts ends the client, too: what fails for that reason is no failure.
void runUninterrupted(const Command& command, Context& context) {
    try {
        command.run(context);
    } catch (const Failure&) {
        context.interrupt.check();
        throw;
    }
}

int run(const Command& command, const Request& request, char* arguments[]) {
    Interrupt interrupt;
    Context context{request, interrupt, Console::of(1), Console::of(2)};
    try {
        runUninterrupted(command, context);
        const int status = finish(context.status);
        if (context.hasSaved)
            tellOthers(arguments, status);
        return status;
    } catch (const Interrupted& end) {
        std::cout << std::flush;
        tell(end.message, FAILED);
        if (context.hasSaved)
            tellOthers(arguments, -end.signal);
        Interrupt::endBy(end.signal);
    }
}

int runChosen(const CLI::App& app, const Request& request, char* arguments[]) {
    try {
        checkSsid(app, request);
        return run(chosen(app), request, arguments);
    } catch (const WrongUse& error) {
        return tell(error.what(), WRONG_USE);
    } catch (const Failure& error) {
        return tell(error.what(), FAILED);
    } catch (const std::exception& error) {
        return tell(std::string("something went wrong: ") + error.what(), FAILED);
    }
}

// The words of the parser are about arguments of a command only.
std::string problem(const CLI::App& app, const CLI::ParseError& error, const char* first) {
    if (!app.get_subcommands().empty())
        return printable(error.what());
    if (!first)
        return "a command is missing";
    return std::string(first[0] == '-' ? "there is no option " : "there is no command ") +
           printable(first);
}

std::string nextStep(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    const std::string command = chosen.empty() ? "" : chosen.front()->get_name() + " ";
    return "platwifi " + command + "--help shows how it is used";
}

void add(std::vector<Option>& options, const CLI::Option& option) {
    const bool takesValue = option.get_items_expected_min() > 0;
    for (const std::string& name : option.get_lnames())
        options.push_back({"--" + name, takesValue});
    for (const std::string& name : option.get_snames())
        options.push_back({"-" + name, takesValue});
}

} // namespace

std::vector<Option> optionsOf(const std::string& command) {
    Request request;
    CLI::App app;
    setUp(app, request);
    const CLI::App& owner = command.empty() ? app : *app.get_subcommand(command);
    std::vector<Option> options;
    for (const CLI::Option* const option : owner.get_options())
        add(options, *option);
    return options;
}

int runCommandLine(int count, char* arguments[]) {
    fillClosedStreams();
    std::signal(SIGPIPE, SIG_IGN);
    Request request;
    CLI::App app("Wi-Fi of this host: finds, configures and connects to networks.", "platwifi");
    setUp(app, request);
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& help) {
        app.exit(help);
        return finish(DONE);
    } catch (const CLI::ParseError& error) {
        return tell(problem(app, error, arguments[1]) + "; " + nextStep(app), WRONG_USE);
    }
    return runChosen(app, request, arguments);
}

} // namespace cli
