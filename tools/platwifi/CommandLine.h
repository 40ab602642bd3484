#pragma once

#include <string>
#include <vector>

namespace cli {

/// Reads the arguments, runs the command that they name, and tells what went wrong.
/// @return the program's exit status
int runCommandLine(int count, char* arguments[]);

struct Option {
    std::string name; ///< with its hyphens
    bool takesValue;
};

/// The options of a command, long and short ones; those of the program itself for "".
std::vector<Option> optionsOf(const std::string& command);

} // namespace cli
