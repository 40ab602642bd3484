#pragma once

#include "values/Values.h"

#include <string>
#include <vector>

namespace cli {

struct Command;

/// Reads the arguments of main(). Options may stand before the command as well as behind it. Prints the
/// help or the version if an option asks for that.
/// @param request  receives what they ask for
/// @return the command; null after the help or the version
/// @throws WrongUse
const Command* readArguments(int count, char* arguments[], Request& request);

struct Option {
    std::string name; ///< with its hyphens
    bool takesValue;
};

/// The options of a command, long and short ones; for "" those that may stand before one: the program's own
/// and those of all commands.
/// @param command  a name or an alias
std::vector<Option> optionsOf(const std::string& command);

/// The words that an option takes; none if it takes another value, or none at all.
std::vector<std::string> wordsOfOption(const std::string& option);

} // namespace cli
