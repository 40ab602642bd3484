#include "checks/Processes.h"

#include "client/ClientReply.h"
#include "values/Texts.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace cli {

WordList wordsOf(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
}

std::vector<WordList> runningCommands() {
    std::vector<WordList> commands;
    std::istringstream processes(processList());
    for (std::string line; std::getline(processes, line);) {
        WordList words = wordsOf(line);
        if (words.size() < 2)
            continue;
        words.erase(words.begin()); // the process id
        commands.push_back(std::move(words));
    }
    return commands;
}

// A program that describes its work in its command line puts a colon behind its name.
std::string programOf(const WordList& command) {
    const std::string& path = command.front();
    const std::string name = path.substr(path.rfind('/') + 1);
    return name.substr(0, name.find(':'));
}

bool isRunning(const std::string& program, const std::vector<WordList>& commands) {
    return std::any_of(commands.begin(), commands.end(),
                       [&](const WordList& command) { return programOf(command) == program; });
}

std::string optionOf(const WordList& command, const std::string& option) {
    for (std::size_t i = 1; i < command.size(); ++i) {
        if (command[i] == option && i + 1 < command.size())
            return command[i + 1];
        if (beginsWith(command[i], option))
            return command[i].substr(option.size());
    }
    return "";
}

std::vector<WordList> supplicantsAmong(const std::vector<WordList>& commands) {
    std::vector<WordList> supplicants;
    std::copy_if(commands.begin(), commands.end(), std::back_inserter(supplicants),
                 [](const WordList& command) { return programOf(command) == "wpa_supplicant"; });
    return supplicants;
}

} // namespace cli
