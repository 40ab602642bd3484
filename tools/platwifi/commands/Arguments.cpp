#include "commands/Arguments.h"

#include "commands/CommandTable.h"
#include "display/Text.h"
#include "host/ScanOrder.h"
#include "host/Ssid.h"
#include "values/Failure.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <strings.h>

namespace cli {
namespace {

constexpr std::size_t OPTION_COLUMN = 26;
constexpr int MAX_TIMEOUT = 3600;
constexpr std::size_t MAX_DIGITS = 4;

bool isTimeout(const std::string& text) {
    const bool isNumber =
        text.size() <= MAX_DIGITS && text.find_first_not_of("0123456789") == std::string::npos;
    const int seconds = isNumber ? std::atoi(text.c_str()) : 0;
    return seconds > 0 && seconds <= MAX_TIMEOUT;
}

// The message about an option's value; "" for a valid one.
std::string timeoutError(const std::string& text) {
    return isTimeout(text) ? "" : "it takes seconds, 1 to " + std::to_string(MAX_TIMEOUT);
}

std::string sortError(const std::string& text) {
    std::string names;
    for (const ScanOrder& order : scanOrders()) {
        if (text == order.name)
            return "";
        names += (names.empty() ? "" : ", ") + std::string(order.name);
    }
    return "it takes one of " + names;
}

std::string interfaceError(const std::string& text) {
    return text.empty() ? "it takes a name; platwifi adapters lists them" : "";
}

bool isSameWord(const char* one, const std::string& other) {
    return strcasecmp(one, other.c_str()) == 0;
}

std::string eapError(const std::string& text) {
    constexpr const char* METHODS[] = {"PEAP", "TTLS", "TLS"};
    const bool isKnown = std::any_of(std::begin(METHODS), std::end(METHODS),
                                     [&](const char* word) { return isSameWord(word, text); });
    return isKnown ? "" : "it takes PEAP, TTLS or TLS; for other methods give eap=WORD";
}

void addOperands(CLI::App& app, const Command& command, Request& request) {
    if (has(command, SSID))
        app.add_option("SSID", request.ssid, "name of the network; after -- if it begins with -")
            ->required();
    if (has(command, OPTIONAL_SSID))
        app.add_option("SSID", request.ssid, "name of the network (the current one)");
    if (has(command, ASSIGNMENTS))
        app.add_option("NAME=VALUE", request.assignments, "properties")->required();
    if (has(command, OPTIONAL_ASSIGNMENTS))
        app.add_option("NAME=VALUE", request.assignments, "properties");
}

void addOptions(CLI::App& app, const Command& command, Request& request) {
    if (has(command, TIMEOUT)) {
        app.add_option("-t,--timeout", request.timeout, "how long to wait (30)")
            ->type_name("SECONDS")
            ->check(timeoutError);
    }
    if (has(command, HIDDEN))
        app.add_flag("--hidden", request.hidden, "the access point hides the name");
    if (has(command, EAP)) {
        app.add_option("--eap", request.eap, "method of an enterprise network")
            ->type_name("PEAP|TTLS|TLS")
            ->check(eapError);
    }
    if (has(command, SORT)) {
        app.add_option("--sort", request.sort, "signal (the default), ssid, channel or security")
            ->type_name("ORDER")
            ->check(sortError);
    }
    if (has(command, FULL))
        app.add_flag("--full", request.full, "every network with its security");
    if (has(command, JSON))
        app.add_flag("--json", request.json, "print JSON");
    app.add_option("-i,--interface", request.iface, "interface (the first one listed)")
        ->type_name("NAME")
        ->check(interfaceError);
}

void addCommands(CLI::App& app, Request& request) {
    for (const Command& command : commands()) {
        CLI::App* const subcommand = app.add_subcommand(command.name, command.help);
        subcommand->footer(command.epilogue())->group("Commands");
        addOperands(*subcommand, command, request);
        addOptions(*subcommand, command, request);
    }
}

// REQUIRED and TEXT say nothing that the line of usage and the names of the arguments do not say.
void setHelpLabels(CLI::FormatterBase& help) {
    help.column_width(OPTION_COLUMN);
    help.label("Positionals", "Arguments");
    help.label("SUBCOMMAND", "COMMAND");
    help.label("REQUIRED", "");
    help.label("TEXT", "");
}

void setUp(CLI::App& app, Request& request) {
    setHelpLabels(*app.get_formatter());
    app.set_version_flag("--version", PLATWIFI_VERSION);
    app.footer(generalEpilogue());
    app.require_subcommand(1);
    addCommands(app, request);
}

// An SSID that is given is checked, also an empty one; one that is left out is not.
void checkSsid(const CLI::App& app, const Request& request) {
    const CLI::Option* const argument = app.get_subcommands().front()->get_option_no_throw("SSID");
    if (argument && argument->count() > 0)
        requireSsid(request.ssid);
}

const Command& chosenCommand(const CLI::App& app) {
    const std::string name = app.get_subcommands().front()->get_name();
    for (const Command& command : commands()) {
        if (name == command.name)
            return command;
    }
    throw WrongUse("there is no command " + name);
}

// The parser's messages are about the arguments of a command; those before are this program's own.
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

const Command* readArguments(int count, char* arguments[], Request& request) {
    CLI::App app("Wi-Fi of this host: finds, configures and connects to networks.", "platwifi");
    setUp(app, request);
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& help) {
        app.exit(help);
        return nullptr;
    } catch (const CLI::ParseError& error) {
        throw WrongUse(problem(app, error, arguments[1]) + "; " + nextStep(app));
    }
    checkSsid(app, request);
    return &chosenCommand(app);
}

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

} // namespace cli
