#include "commands/CommandNames.h"

#include "commands/CommandTable.h"
#include "display/Text.h"
#include "values/Failure.h"
#include "values/Nearest.h"

namespace cli {

std::vector<std::string> commandNames() {
    std::vector<std::string> names;
    for (const Command& command : commands()) {
        names.emplace_back(command.name);
        if (command.alias)
            names.emplace_back(command.alias);
    }
    return names;
}

const Command* findCommand(const std::string& word) {
    for (const Command& command : commands()) {
        if (word == command.name || (command.alias && word == command.alias))
            return &command;
    }
    return nullptr;
}

const Command& commandOf(const std::string& word) {
    if (const Command* const command = findCommand(word))
        return *command;
    const std::vector<std::string> known = commandNames();
    throw WrongUse("there is no command " + (word.empty() ? "''" : printable(word)) +
                   didYouMean(word, known) + "; the commands are " + listOf(known) +
                   "; platwifi --help explains them");
}

} // namespace cli
