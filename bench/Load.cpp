// Loading all networks.

#include "BareCommand.h"
#include "Contest.h"
#include "Measurements.h"
#include "Networks.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WatchedClient.h"
#include "supplicant/WifiUtil.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

constexpr const char* SCRIPT = "/tmp/bench-load.sh";

void unload() {
    WifiHostSettings::unload();
    WifiUtil::unload();
}

void load() {
    platwifi::ReplyLines ssids(NETWORK_COUNT);
    WifiHostSettings::getInstance(nullptr)->getNetworkDatabaseSsids(WLAN, ssids.data(),
                                                                    ssids.capacity(), &ssids.count);
    if (ssids.count != NETWORK_COUNT)
        throw std::runtime_error("not all networks were loaded");
}

Arguments wordsOf(const std::string& line) {
    std::istringstream stream(line);
    Arguments words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

// No argument of a load contains a blank.
std::vector<Arguments> commandsOfALoad() {
    const test::WatchedClient client;
    unload();
    load();
    unload();
    std::vector<Arguments> commands;
    for (const std::string& line : client.commands())
        commands.push_back(wordsOf(line));
    return commands;
}

void writeScript(const std::vector<Arguments>& commands) {
    std::ofstream script(SCRIPT);
    for (const Arguments& command : commands) {
        script << "reply=$(" << CLIENT;
        for (const std::string& word : command)
            script << ' ' << word;
        script << ")\n";
    }
    script << "printf '%s\\n' \"$reply\"\n";
}

void replay(const std::vector<Arguments>& commands) {
    for (const Arguments& command : commands)
        runBare(CLIENT, command);
}

void runScript() {
    runBare("/bin/bash", {SCRIPT});
}

} // namespace

Rows measureLoad() {
    const std::vector<Arguments> commands = commandsOfALoad();
    writeScript(commands);
    const Timings times =
        compete({{load, unload}, {[&commands] { replay(commands); }}, {runScript}}, {7, 0});
    unload();
    std::filesystem::remove(SCRIPT);
    const std::string number = std::to_string(commands.size()) + " commands";
    return {
        timeRow("Loading 32 networks from nothing, " + number,
                "the same commands without the library", times[0], times[1],
                "A load takes as long as its commands need; the first call that needs the settings "
                "waits "
                "for it, later ones do not."),
        timeRow("Loading 32 networks from nothing, " + number, "a bash script of the same commands",
                times[0], times[2], "What a script needs that reads the same values."),
    };
}

} // namespace bench
