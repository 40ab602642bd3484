// Loading all networks.

#include "Commands.h"
#include "Contest.h"
#include "Measurements.h"
#include "Networks.h"
#include "Subject.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
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

Commands commandsOfALoad() {
    unload();
    return commandsOf([] {
        load();
        unload();
    });
}

// A process has one profile.
std::unique_ptr<Subject> processUnder(const char* profile) {
    setenv("PLATWIFI_PROFILE", profile, 1);
    auto process = std::make_unique<Subject>("settings");
    unsetenv("PLATWIFI_PROFILE");
    return process;
}

std::string commandsUnder(const char* profile) {
    const Commands commands = commandsOf([profile] { processUnder(profile)->begin(); });
    return std::to_string(commands.size()) + " commands";
}

Contestant loadUnder(const char* profile) {
    const auto process = std::make_shared<std::unique_ptr<Subject>>();
    return {[process] { (*process)->begin(); },
            [process, profile] {
                process->reset(); // before the next one starts
                *process = processUnder(profile);
            }};
}

// Each load is the first one of a new process.
Row compareProfiles() {
    const Timings times = compete({loadUnder("modern"), loadUnder("device")}, {5, 0});
    return timeRow("Loading 32 networks under `modern`, " + commandsUnder("modern"),
                   "under `device`, " + commandsUnder("device"), times[0], times[1],
                   "The profiles ask for different fields of a network.");
}

void writeScript(const Commands& commands) {
    std::ofstream script(SCRIPT);
    for (const Arguments& command : commands) {
        script << "reply=$(" << HOST_CLIENT;
        for (const std::string& word : command)
            script << ' ' << word;
        script << ")\n";
    }
    script << "printf '%s\\n' \"$reply\"\n";
}

void runScript() {
    runBare("/bin/bash", {SCRIPT});
}

} // namespace

Rows measureLoad() {
    const Commands commands = commandsOfALoad();
    writeScript(commands);
    const Timings times = compete(
        {{load, unload}, {[&commands] { replay(HOST_CLIENT, commands); }}, {runScript}}, {7, 0});
    unload();
    std::filesystem::remove(SCRIPT);
    const std::string number = std::to_string(commands.size()) + " commands";
    return {
        timeRow("Loading 32 networks from nothing, " + number,
                "the same commands of the host's client, without the library", times[0], times[1],
                "A load takes as long as its commands need; the first call that needs the settings "
                "waits for it, later ones do not.",
                "load-host"),
        timeRow("Loading 32 networks from nothing, " + number,
                "a bash script of the same commands, with the host's client", times[0], times[2],
                "What a script needs that reads the same values.", "load-script"),
        compareProfiles(),
    };
}

} // namespace bench
