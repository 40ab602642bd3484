#include "Commands.h"

#include "supplicant/WatchedClient.h"

#include <sstream>

namespace bench {
namespace {

Arguments wordsOf(const std::string& line) {
    std::istringstream stream(line);
    Arguments words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

} // namespace

Commands commandsOf(const std::function<void()>& work) {
    const test::WatchedClient client;
    work();
    Commands commands;
    for (const std::string& line : client.commands())
        commands.push_back(wordsOf(line));
    return commands;
}

void replay(const char* client, const Commands& commands) {
    for (const Arguments& command : commands)
        runBare(client, command);
}

} // namespace bench
