// One command of the client.

#include "BareCommand.h"
#include "Contest.h"
#include "Measurements.h"
#include "Networks.h"
#include "supplicant/WifiUtil.h"

#include <stdexcept>

namespace bench {
namespace {

constexpr const char* KEY = "priority"; // the first network has one

const Arguments SAME_COMMAND{"-iwlan0", "get_network", "0", KEY};

void askTheLibrary() {
    char value[128] = "";
    if (!WifiUtil::getInstance()->getNetworkValue(WLAN, 0, KEY, value, sizeof(value)))
        throw std::runtime_error("the library cannot read a value");
}

void askTheHost() {
    runBare(HOST_CLIENT, SAME_COMMAND);
}

void askDirectly() {
    runBare(QUICK_CLIENT, SAME_COMMAND);
}

void askInPauses() {
    runBare(QUICK_CLIENT, SAME_COMMAND, Wait::InPausesOf50Ms);
}

} // namespace

Rows measureCommand() {
    const Timings times =
        compete({{askTheLibrary}, {askTheHost}, {askDirectly}, {askInPauses}}, {15, 0.1});
    WifiUtil::unload();
    return {
        timeRow("One client command through the library",
                "the host's client alone: start, wait, read", times[0], times[1],
                "What a program saves that would run the host's client itself.", "command-host"),
        timeRow("One client command through the library", "the quick client alone", times[0],
                times[2], "What the library adds to the client's own time; 1 means nothing.",
                "command-quick"),
        timeRow("The quick client, checked every 50 ms", "the quick client alone", times[3],
                times[2],
                "What a command costs on a system that cannot report the end of a child."),
        timeRow("One client command through the library", "the quick client, checked every 50 ms",
                times[0], times[3], "What the report of the child's end saves."),
    };
}

} // namespace bench
