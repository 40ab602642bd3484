#include "CommandLine.h"

#include "CommandTable.h"
#include "Failure.h"
#include "OtherProcesses.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>

namespace cli {
namespace {

constexpr std::size_t OPTION_COLUMN = 26;
constexpr unsigned int LONGEST_PATIENCE = 3600;

int tell(const std::string& message, int status) {
    std::cerr << "platwifi: " << message << '\n';
    return status;
}

void addOptions(CLI::App& app, const Command& command, Request& request) {
    if (has(command, SSID))
        app.add_option("SSID", request.ssid, "name of the network")->required();
    if (has(command, MAYBE_SSID))
        app.add_option("SSID", request.ssid, "name of the network (the current one)");
    if (has(command, ASSIGNMENTS))
        app.add_option("NAME=VALUE", request.assignments, "properties")->required();
    if (has(command, MAYBE_ASSIGNMENTS))
        app.add_option("NAME=VALUE", request.assignments, "properties");
    if (has(command, PATIENCE))
        app.add_option("-t,--timeout", request.patience, "seconds to wait (30)")
            ->check(CLI::Range(1U, LONGEST_PATIENCE));
    if (has(command, FULL))
        app.add_flag("--full", request.full, "every network with its security");
    if (has(command, JSON))
        app.add_flag("--json", request.json, "print JSON");
    app.add_option("-i,--interface", request.iface, "interface (the first one listed)");
}

void addCommands(CLI::App& app, Request& request) {
    for (const Command& command : commands()) {
        CLI::App* const subcommand = app.add_subcommand(command.name, command.help);
        subcommand->footer(command.more());
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

void setUp(CLI::App& app, Request& request) {
    app.get_formatter()->column_width(OPTION_COLUMN);
    app.set_version_flag("--version", PLATWIFI_VERSION);
    app.footer(generalHelp());
    app.require_subcommand(1);
    addCommands(app, request);
}

// Whoever reads the result may have gone: that needs no words.
void flush() {
    errno = 0;
    if (std::cout.flush())
        return;
    if (errno == EPIPE)
        throw Failure("");
    throw Failure(std::string("the result cannot be written: ") + std::strerror(errno) +
                  "; see where standard output leads to");
}

int run(const Command& command, const Request& request, char* arguments[]) {
    Interrupt interrupt;
    Context context{request, interrupt, Console::of(1), Console::of(2)};
    try {
        command.run(context);
        flush();
        if (context.hasSaved)
            tellOthers(arguments);
        return context.status;
    } catch (const Interrupted& end) {
        std::cout << std::flush;
        tell(end.message, FAILED);
        Interrupt::endBy(end.signal);
    }
}

int runChosen(const CLI::App& app, const Request& request, char* arguments[]) {
    try {
        return run(chosen(app), request, arguments);
    } catch (const WrongUse& error) {
        return tell(error.what(), WRONG_USE);
    } catch (const Failure& error) {
        return error.what()[0] == '\0' ? FAILED : tell(error.what(), FAILED);
    } catch (const std::exception& error) {
        return tell(std::string("something went wrong: ") + error.what(), FAILED);
    }
}

std::string nextStep(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    const std::string command = chosen.empty() ? "" : chosen.front()->get_name() + " ";
    return "platwifi " + command + "--help shows how it is used";
}

} // namespace

int runCommandLine(int count, char* arguments[]) {
    std::signal(SIGPIPE, SIG_IGN);
    Request request;
    CLI::App app("Wi-Fi of this host: finds, configures and connects to networks.", "platwifi");
    setUp(app, request);
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        return tell(std::string(error.what()) + "; " + nextStep(app), WRONG_USE);
    }
    return runChosen(app, request, arguments);
}

} // namespace cli
