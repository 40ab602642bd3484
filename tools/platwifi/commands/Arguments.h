#pragma once

#include "values/Values.h"

#include <string>
#include <vector>

namespace cli {

struct Command;

/// Reads the arguments of main(). Prints the help or the version if they ask for that.
/// @param request  receives what they ask for
/// @return the command; null after the help or the version
/// @throws WrongUse
const Command* readArguments(int count, char* arguments[], Request& request);

struct Option {
    std::string name; ///< with its hyphens
    bool takesValue;
};

/// The options of a command, long and short ones; for "" those of the program itself.
std::vector<Option> optionsOf(const std::string& command);

} // namespace cli
