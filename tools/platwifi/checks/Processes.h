#pragma once

#include <string>
#include <vector>

namespace cli {

using WordList = std::vector<std::string>;

/// Splits at white space.
WordList wordsOf(const std::string& line);

/// The command line of each running process, as the process lister shows it. Never empty ones.
std::vector<WordList> runningCommands();

/// The file name of the program of a command.
std::string programOf(const WordList& command);

/// Whether one of the commands runs this program.
bool isRunning(const std::string& program, const std::vector<WordList>& commands);

/// The value of the first option with this name: "VALUE" of "-c VALUE" and of "-cVALUE"; "" without one.
std::string optionOf(const WordList& command, const std::string& option);

/// The commands of running supplicants.
std::vector<WordList> supplicantsAmong(const std::vector<WordList>& commands);

} // namespace cli
