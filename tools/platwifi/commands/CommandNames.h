#pragma once

#include <string>
#include <vector>

namespace cli {

struct Command;

/// The names of all commands, each with its alias behind it.
std::vector<std::string> commandNames();

/// @param word  a name or an alias
/// @return null for an unknown one
const Command* findCommand(const std::string& word);

/// @throws WrongUse for an unknown one, with all commands
const Command& commandOf(const std::string& word);

} // namespace cli
