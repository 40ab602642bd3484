#pragma once

#include <string>
#include <vector>

namespace cli {

using Words = std::vector<std::string>;

/// Splits at white space.
Words wordsOf(const std::string& line);

/// The command line of each running process, as the process lister shows it. Never empty ones.
std::vector<Words> runningCommands();

/// The file name of the program of a command.
std::string programOf(const Words& command);

/// Whether one of the commands runs this program.
bool isRunning(const std::string& program, const std::vector<Words>& commands);

/// The value of the first option with this name: "VALUE" of "-c VALUE" and of "-cVALUE"; "" without one.
std::string optionOf(const Words& command, const std::string& option);

/// The commands of running supplicants.
std::vector<Words> supplicantsAmong(const std::vector<Words>& commands);

} // namespace cli
