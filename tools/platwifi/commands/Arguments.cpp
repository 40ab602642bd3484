#include "commands/Arguments.h"

#include "commands/CommandNames.h"
#include "commands/CommandTable.h"
#include "commands/Commands.h"
#include "display/Text.h"
#include "host/Host.h"
#include "host/ScanOrder.h"
#include "host/Ssid.h"
#include "values/Failure.h"
#include "values/Nearest.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <memory>
#include <strings.h>

namespace cli {
namespace {

using Words = std::vector<std::string>;

constexpr const char* PROGRAM = "platwifi";
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

Words sortWords() {
    Words names;
    for (const ScanOrder& order : scanOrders())
        names.emplace_back(order.name);
    return names;
}

std::string sortError(const std::string& text) {
    const Words known = sortWords();
    const bool isKnown = std::find(known.begin(), known.end(), text) != known.end();
    return isKnown ? "" : "it takes one of " + listOf(known);
}

std::string interfaceError(const std::string& text) {
    return text.empty() ? "it takes a name; platwifi adapters lists them" : "";
}

Words eapMethods() {
    return {"PEAP", "TTLS", "TLS"};
}

std::string eapError(const std::string& text) {
    const Words known = eapMethods();
    const bool isKnown = std::any_of(known.begin(), known.end(), [&](const std::string& word) {
        return strcasecmp(word.c_str(), text.c_str()) == 0;
    });
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
    if (has(command, TOPIC))
        app.add_option("COMMAND", request.topic, "what to explain (the program)");
}

// requireOnce() is what refuses an option that is given twice: its message is clearer than the parser's.
constexpr auto SEVERAL = CLI::MultiOptionPolicy::TakeLast;

void addOptions(CLI::App& app, const Command& command, Request& request) {
    if (has(command, TIMEOUT)) {
        app.add_option("-t,--timeout", request.timeout, "how long to wait (30)")
            ->type_name("SECONDS")
            ->multi_option_policy(SEVERAL)
            ->check(timeoutError);
    }
    if (has(command, HIDDEN))
        app.add_flag("--hidden", request.hidden, "the access point hides the name");
    if (has(command, EAP)) {
        app.add_option("--eap", request.eap, "method of an enterprise network")
            ->type_name("PEAP|TTLS|TLS")
            ->multi_option_policy(SEVERAL)
            ->check(eapError);
    }
    if (has(command, SORT)) {
        app.add_option("--sort", request.sort, "signal (the default), ssid, channel or security")
            ->type_name("ORDER")
            ->multi_option_policy(SEVERAL)
            ->check(sortError);
    }
    if (has(command, FULL))
        app.add_flag("--full", request.full, "every network with its security");
    if (has(command, JSON))
        app.add_flag("--json", request.json, "print JSON");
    if (!has(command, NO_INTERFACE)) {
        app.add_option("-i,--interface", request.iface, "interface (the first one listed)")
            ->type_name("NAME")
            ->multi_option_policy(SEVERAL)
            ->check(interfaceError);
    }
}

void addCommand(CLI::App& app, const Command& command, Request& request) {
    CLI::App* const subcommand = app.add_subcommand(command.name, command.help);
    subcommand->footer(command.epilogue)->group("Commands");
    if (command.alias)
        subcommand->alias(command.alias);
    addOperands(*subcommand, command, request);
    addOptions(*subcommand, command, request);
}

// REQUIRED and TEXT say nothing that the line of usage and the names of the arguments do not say.
void setHelpLabels(CLI::FormatterBase& help) {
    help.column_width(OPTION_COLUMN);
    help.label("Positionals", "Arguments");
    help.label("SUBCOMMAND", "COMMAND");
    help.label("REQUIRED", "");
    help.label("TEXT", "");
}

// The parser without commands.
std::unique_ptr<CLI::App> newParser() {
    auto app = std::make_unique<CLI::App>(
        "Wi-Fi of this host: finds, configures and connects to networks.", PROGRAM);
    setHelpLabels(*app->get_formatter());
    app->set_version_flag("--version", PROGRAM + std::string(" " PLATWIFI_VERSION));
    app->footer(generalEpilogue);
    app->require_subcommand(1);
    return app;
}

// A parser of one command, which is what most calls need; to make that of all takes most of their time.
std::unique_ptr<CLI::App> parserOf(const Command& command, Request& request) {
    auto app = newParser();
    addCommand(*app, command, request);
    return app;
}

std::unique_ptr<CLI::App> parserOfAll(Request& request) {
    auto app = newParser();
    for (const Command& command : commands())
        addCommand(*app, command, request);
    return app;
}

// An SSID that is given is checked, also an empty one; one that is left out is not.
void checkSsid(const CLI::App& command, const Request& request) {
    const CLI::Option* const argument = command.get_option_no_throw("SSID");
    if (argument && argument->count() > 0)
        requireSsid(request.ssid);
}

std::string nextStep(const std::string& command) {
    return "; platwifi " + command + " --help shows how it is used";
}

void requireOnce(const CLI::App& command) {
    for (const CLI::Option* const option : command.get_options()) {
        if (option->nonpositional() && option->count() > 1)
            throw WrongUse(option->get_name() + " is given twice" + nextStep(command.get_name()));
    }
}

bool isOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-';
}

// The option without the value that may stand in the same word.
std::string optionName(const std::string& word) {
    return word[1] == '-' ? word.substr(0, word.find('=')) : word.substr(0, 2);
}

Words namesOf(const std::vector<Option>& options) {
    Words names;
    for (const Option& option : options)
        names.push_back(option.name);
    return names;
}

// The message about an option that the command, or for "" every command, does not have.
std::string unknownOption(const std::string& command, const std::string& word) {
    const std::string name = word.substr(0, word.find('='));
    const Words known = namesOf(optionsOf(command));
    return (command.empty() ? "there is" : command + " has") + " no option " + printable(name) +
           didYouMean(name, known) + "; the options are " + listOf(known) + "; platwifi " +
           (command.empty() ? "" : command + " ") + "--help explains them";
}

// The options among these words, which end before "--".
Words optionsIn(const Words& words) {
    Words options;
    const auto end = std::find(words.begin(), words.end(), "--");
    std::copy_if(words.begin(), end, std::back_inserter(options), isOption);
    return options;
}

[[noreturn]] void refuse(const CLI::App& command, const CLI::ParseError& error) {
    const Words unknown = optionsIn(command.remaining());
    throw WrongUse(unknown.empty() ? printable(error.what()) + nextStep(command.get_name())
                                   : unknownOption(command.get_name(), unknown[0]));
}

// There is no command among these words.
[[noreturn]] void refuse(const Words& words) {
    const Words known = namesOf(optionsOf(""));
    for (const std::string& option : optionsIn(words)) {
        if (std::find(known.begin(), known.end(), optionName(option)) == known.end())
            throw WrongUse(unknownOption("", option));
    }
    throw WrongUse("a command is missing; platwifi --help lists them, and platwifi help COMMAND "
                   "explains one");
}

// An option that several commands have is listed once.
void add(std::vector<Option>& options, const std::string& name, bool takesValue) {
    const auto hasName = [&](const Option& option) { return option.name == name; };
    if (std::none_of(options.begin(), options.end(), hasName))
        options.push_back({name, takesValue});
}

void add(std::vector<Option>& options, const CLI::App& owner) {
    for (const CLI::Option* const option : owner.get_options()) {
        const bool takesValue = option->get_items_expected_min() > 0;
        for (const std::string& name : option->get_lnames())
            add(options, "--" + name, takesValue);
        for (const std::string& name : option->get_snames())
            add(options, "-" + name, takesValue);
    }
}

void parse(CLI::App& app, Words words) {
    std::reverse(words.begin(), words.end()); // the parser takes them from the end
    app.parse(words);
}

bool takesValue(const std::string& word, const std::vector<Option>& options) {
    return std::any_of(options.begin(), options.end(), [&](const Option& option) {
        return option.takesValue && option.name == word;
    });
}

// Moves the command before the options that stand before it, so that these are its own.
Words commandFirst(Words words) {
    if (words.empty() || !isOption(words[0]))
        return words;
    const auto options = optionsOf("");
    std::size_t command = 0;
    while (command < words.size() && isOption(words[command]))
        command += takesValue(words[command], options) ? 2 : 1;
    if (command < words.size()) {
        const auto found = words.begin() + static_cast<std::ptrdiff_t>(command);
        std::rotate(words.begin(), found, found + 1);
    }
    return words;
}

} // namespace

const Command* readArguments(int count, char* arguments[], Request& request) {
    const Words words = commandFirst({arguments + 1, arguments + count});
    const bool hasCommand = !words.empty() && !isOption(words[0]);
    const Command* const command = hasCommand ? &commandOf(words[0]) : nullptr;
    const auto app = command ? parserOf(*command, request) : parserOfAll(request);
    try {
        parse(*app, words);
    } catch (const CLI::Success& help) {
        app->exit(help);
        return nullptr;
    } catch (const CLI::ParseError& error) {
        if (!command)
            refuse(words);
        refuse(*app->get_subcommand(command->name), error);
    }
    const CLI::App& chosen = *app->get_subcommands().front();
    requireOnce(chosen);
    checkSsid(chosen, request);
    return command;
}

std::vector<Option> optionsOf(const std::string& command) {
    Request request;
    std::vector<Option> options;
    if (!command.empty()) {
        const auto app = parserOf(commandOf(command), request);
        add(options, *app->get_subcommand(command));
        return options;
    }
    const auto app = parserOfAll(request);
    add(options, *app);
    for (const CLI::App* const each : app->get_subcommands({}))
        add(options, *each);
    return options;
}

std::vector<std::string> wordsOfOption(const std::string& option) {
    if (option == "--sort")
        return sortWords();
    return option == "--eap" ? eapMethods() : Words();
}

void showHelp(Context& context) {
    Request request;
    const auto app = parserOfAll(request);
    const std::string& topic = context.request.topic;
    if (topic.empty())
        std::cout << app->help();
    else
        std::cout << app->get_subcommand(commandOf(topic).name)->help(PROGRAM);
}

} // namespace cli
