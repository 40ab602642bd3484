// What the shell asks for when somebody presses the TAB key.

#include "completion/Completion.h"

#include "CommandLine.h"
#include "CommandTable.h"
#include "Failure.h"
#include "completion/FileNames.h"
#include "display/Text.h"
#include "edits/Properties.h"
#include "edits/PropertyRules.h"
#include "host/Listing.h"
#include "host/Ssid.h"
#include "process/Interrupt.h"
#include "settings/replies/Columns.h"

#include <algorithm>
#include <cstring>
#include <iostream>

namespace cli {
namespace {

using Candidates = std::vector<Candidate>;

constexpr const char* COMPLETE = "--complete";
constexpr const char* INTERFACE = "--interface";
constexpr const char* SHORT_INTERFACE = "-i";

bool beginsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

// What stands before the word to complete.
struct Before {
    std::string command;
    std::string option; // that waits for its value
    std::size_t operands = 0;
    bool hasOptions = true; // until "--"
};

bool takesValue(const std::string& command, const std::string& word) {
    for (const Option& option : optionsOf(command)) {
        if (option.name == word)
            return option.takesValue;
    }
    return false;
}

void read(const std::string& word, Before& before) {
    const bool isOption = before.hasOptions && beginsWith(word, "-");
    if (!before.option.empty())
        before.option.clear();
    else if (word == "--" && before.hasOptions)
        before.hasOptions = false;
    else if (isOption && takesValue(before.command, word))
        before.option = word;
    else if (!isOption)
        ++before.operands;
}

Candidates whole(const std::vector<std::string>& words, const std::string& before = "") {
    Candidates candidates;
    for (const std::string& word : words)
        candidates.push_back({before + word});
    return candidates;
}

Candidates options(const std::string& command) {
    Candidates candidates;
    for (const Option& option : optionsOf(command))
        candidates.push_back({option.name});
    return candidates;
}

Candidates commandNames() {
    Candidates candidates;
    for (const Command& command : commands())
        candidates.push_back({command.name});
    return candidates;
}

Candidates propertyNames() {
    Candidates candidates;
    for (const Property& property : properties()) {
        if (property.way != Way::reported)
            candidates.push_back({property.name + std::string("="), false});
    }
    return candidates;
}

Candidates files(const std::string& before, const std::string& path) {
    Candidates candidates;
    for (const std::string& file : filesThatBeginWith(path))
        candidates.push_back({before + file, file.back() != '/'});
    return candidates;
}

Candidates secretValues(const std::string& before, const std::string& value) {
    if (beginsWith(value, "@"))
        return files(before + "@", value.substr(1));
    return {{before + "-"}, {before + "@", false}};
}

Candidates valuesOf(const Property& property, const std::string& value) {
    const std::string before = property.name + std::string("=");
    if (isSecret(property))
        return secretValues(before, value);
    if (property.take == takePath)
        return files(before, value);
    Candidates candidates;
    for (const Word& word : property.words)
        candidates.push_back({before + word.text});
    return candidates;
}

Candidates assignments(const std::string& word) {
    const std::size_t sign = word.find('=');
    if (sign == std::string::npos)
        return propertyNames();
    for (const Property& property : properties()) {
        if (property.name == word.substr(0, sign) && property.way != Way::reported)
            return valuesOf(property, word.substr(sign + 1));
    }
    return {};
}

// What the library takes for a network without a name cannot be asked for by this one.
bool isName(const std::string& ssid) {
    return !ssid.empty() && !platwifi::isBssidColumn(ssid);
}

// As it is, where a terminal can show it and nothing in it looks like an escape.
std::string typed(const std::string& notation) {
    const std::string bytes = bytesOfSsid(notation);
    return printable(bytes) == bytes && bytesOfSsid(bytes) == bytes ? bytes : notation;
}

// Those of the first adapter. One that would be taken for an option is left out.
Candidates networks(bool hasOptions) {
    Candidates candidates;
    const auto adapters = listedAdapters();
    if (adapters.empty())
        return candidates;
    bool ok = false;
    for (const ListedNetwork& network : listedNetworks(adapters.front(), ok)) {
        const std::string ssid = typed(network.ssid);
        if (isName(network.ssid) && !(hasOptions && beginsWith(ssid, "-")))
            candidates.push_back({ssid});
    }
    return candidates;
}

Candidates operandsOf(const Command& command, const Before& before, const std::string& word) {
    const bool hasSsid = has(command, SSID) || has(command, MAYBE_SSID);
    if (before.operands == 0 && hasSsid)
        return has(command, NEW_SSID) ? Candidates{} : networks(before.hasOptions);
    if (has(command, ASSIGNMENTS) || has(command, MAYBE_ASSIGNMENTS))
        return assignments(word);
    return {};
}

Candidates argumentsOf(const Command& command, const Before& before, const std::string& word) {
    const std::string assigned = INTERFACE + std::string("=");
    if (!before.option.empty()) {
        const bool isInterface = before.option == INTERFACE || before.option == SHORT_INTERFACE;
        return isInterface ? whole(listedAdapters()) : Candidates{};
    }
    if (before.hasOptions && beginsWith(word, assigned))
        return whole(listedAdapters(), assigned);
    if (before.hasOptions && beginsWith(word, "-"))
        return options(command.name);
    return operandsOf(command, before, word);
}

Candidates allFor(const std::vector<std::string>& words) {
    const std::string& word = words.back();
    if (words.size() == 1)
        return beginsWith(word, "-") ? options("") : commandNames();
    for (const Command& command : commands()) {
        if (words.front() != command.name)
            continue;
        Before before;
        before.command = command.name;
        for (std::size_t i = 1; i + 1 < words.size(); ++i)
            read(words[i], before);
        return argumentsOf(command, before, word);
    }
    return {};
}

} // namespace

std::vector<Candidate> candidatesFor(const std::vector<std::string>& words) {
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
        Interrupt::endBy(end.signal);
    }
    return DONE;
}

} // namespace cli
