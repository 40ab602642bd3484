// Which kind of word stands at the cursor, judged by the words before it.

#include "completion/Completion.h"

#include "commands/Arguments.h"
#include "commands/CommandNames.h"
#include "commands/CommandTable.h"
#include "process/Interrupt.h"
#include "values/Failure.h"
#include "values/Texts.h"

#include <cstring>
#include <iostream>

namespace cli {
namespace {

constexpr const char* COMPLETE = "--complete";
constexpr const char* INTERFACE = "--interface";
constexpr const char* SHORT_INTERFACE = "-i";

/// What the words before the cursor say.
struct Preceding {
    std::string command; // "" if the cursor is before it
    std::string option;  // whose value comes next; "" for none
    std::size_t operands = 0;
    bool allowsOptions = true; // false behind "--"
};

bool takesValue(const std::string& command, const std::string& word) {
    if (!command.empty() && !findCommand(command))
        return false;
    for (const Option& option : optionsOf(command)) {
        if (option.name == word)
            return option.takesValue;
    }
    return false;
}

void readWord(const std::string& word, Preceding& preceding) {
    const bool isOption = preceding.allowsOptions && beginsWith(word, "-");
    if (!preceding.option.empty())
        preceding.option.clear();
    else if (word == "--" && preceding.allowsOptions)
        preceding.allowsOptions = false;
    else if (isOption && takesValue(preceding.command, word))
        preceding.option = word;
    else if (!isOption && preceding.command.empty())
        preceding.command = word;
    else if (!isOption)
        ++preceding.operands;
}

Candidates operands(const Command& command, const Preceding& preceding, const std::string& word) {
    const bool hasSsid = has(command, SSID) || has(command, OPTIONAL_SSID);
    if (preceding.operands == 0 && hasSsid)
        return has(command, NEW_SSID) ? Candidates{} : networks(preceding.allowsOptions);
    if (preceding.operands == 0 && has(command, TOPIC))
        return commandWords();
    if (has(command, ASSIGNMENTS) || has(command, OPTIONAL_ASSIGNMENTS))
        return assignments(word);
    return {};
}

Candidates valuesOf(const std::string& option) {
    if (option == INTERFACE || option == SHORT_INTERFACE)
        return interfaces("");
    Candidates candidates;
    for (const std::string& word : wordsOfOption(option))
        candidates.push_back({word});
    return candidates;
}

// All candidates for the kind of word, whatever the word begins with.
Candidates allFor(const Preceding& preceding, const std::string& word) {
    const Command* const command = findCommand(preceding.command);
    const std::string prefix = INTERFACE + std::string("=");
    if (!preceding.command.empty() && !command)
        return {};
    if (!preceding.option.empty())
        return valuesOf(preceding.option);
    if (preceding.allowsOptions && beginsWith(word, prefix))
        return interfaces(prefix);
    if (preceding.allowsOptions && beginsWith(word, "-"))
        return options(preceding.command);
    return command ? operands(*command, preceding, word) : commandWords();
}

Candidates allFor(const std::vector<std::string>& words) {
    Preceding preceding;
    for (std::size_t i = 0; i + 1 < words.size(); ++i)
        readWord(words[i], preceding);
    return allFor(preceding, words.back());
}

} // namespace

Candidates candidatesFor(const std::vector<std::string>& words) {
    Candidates fitting;
    for (const Candidate& candidate : words.empty() ? Candidates{} : allFor(words)) {
        if (beginsWith(candidate.word, words.back()))
            fitting.push_back(candidate);
    }
    return fitting;
}

bool isCompletion(int count, char* const arguments[]) {
    return count > 1 && std::strcmp(arguments[1], COMPLETE) == 0;
}

int complete(int count, char* const arguments[]) {
    const Interrupt interrupt;
    try {
        for (const Candidate& candidate : candidatesFor({arguments + 2, arguments + count}))
            std::cout << candidate.word << (candidate.isWhole ? " " : "") << '\n';
        std::cout << std::flush;
        interrupt.check();
    } catch (const Interrupted& end) {
        Interrupt::endBySignal(end.signal);
    }
    return DONE;
}

} // namespace cli
