#include "Request.h"

#include <limits.h>
#include <string.h>

namespace client {
namespace {

constexpr int ANY = INT_MAX;

// One row a command: its word, what the supplicant calls it, and how many arguments are sent with it. A command
// line with fewer or more is for the host's client, which explains or ignores them.
struct Command {
    const char* word;
    const char* request;
    int fewest;
    int most;
    const char* heading = "";
    bool alwaysSucceeds = false;
};

// clang-format off
constexpr Command COMMANDS[] = {
    // Questions; the most frequent ones first.
    {"get_network",     "GET_NETWORK",     2, 2},
    {"status",          "STATUS",          0, 0},
    {"list_networks",   "LIST_NETWORKS",   0, ANY},
    {"scan_results",    "SCAN_RESULTS",    0, 0},
    {"interface",       "INTERFACES",      0, 0, "Available interfaces:\n", true},
    {"bss",             "BSS",             1, 1},
    {"get",             "GET",             1, 1},
    {"get_capability",  "GET_CAPABILITY",  1, 1},
    {"ping",            "PING",            0, 0},
    {"signal_poll",     "SIGNAL_POLL",     0, 0},
    // Changes.
    {"add_network",     "ADD_NETWORK",     0, 0},
    {"bssid",           "BSSID",           2, 2},
    {"disable_network", "DISABLE_NETWORK", 1, 1},
    {"disconnect",      "DISCONNECT",      0, 0},
    {"enable_network",  "ENABLE_NETWORK",  1, 1},
    {"reassociate",     "REASSOCIATE",     0, 0},
    {"reconfigure",     "RECONFIGURE",     0, 0},
    {"remove_network",  "REMOVE_NETWORK",  1, 1},
    {"save_config",     "SAVE_CONFIG",     0, 0},
    {"scan",            "SCAN",            0, ANY},
    {"select",          "SELECT_NETWORK",  1, 1}, // short for the next
    {"select_network",  "SELECT_NETWORK",  1, 1},
    {"set_network",     "SET_NETWORK",     3, ANY},
};
// clang-format on

const Command* commandNamed(const char* word) noexcept {
    for (const Command& command : COMMANDS) {
        if (strcmp(command.word, word) == 0)
            return &command;
    }
    return nullptr;
}

// The interface of `-iINTERFACE`; null for any other argument.
const char* interfaceIn(const char* argument) noexcept {
    const bool namesOne = strncmp(argument, "-i", 2) == 0 && argument[2] != '\0';
    return namesOne ? argument + 2 : nullptr;
}

// An option counts behind the command's word, too.
bool isOption(const char* argument) noexcept {
    return argument[0] == '-' && argument[1] != '\0';
}

bool holdOption(const char* const* words) noexcept {
    for (; *words; ++words) {
        if (isOption(*words))
            return true;
    }
    return false;
}

} // namespace

bool Request::read(const Arguments& arguments) noexcept {
    int used = 1;
    if (arguments.count() > used && (m_iface = interfaceIn(arguments.get()[used])))
        ++used;
    const Command* const command =
        arguments.count() > used ? commandNamed(arguments.get()[used]) : nullptr;
    const char* const* const words = arguments.get() + used + 1;
    const int given = arguments.count() - used - 1;
    if (!command || given < command->fewest || given > command->most || holdOption(words))
        return false;
    m_heading = command->heading;
    m_alwaysSucceeds = command->alwaysSucceeds;
    return append(command->request) && appendAll(words);
}

bool Request::append(const char* text) noexcept {
    const size_t length = strlen(text);
    if (length >= sizeof(m_text) - m_length)
        return false;
    memcpy(m_text + m_length, text, length + 1);
    m_length += length;
    return true;
}

bool Request::appendAll(const char* const* words) noexcept {
    for (; *words; ++words) {
        if (!append(" ") || !append(*words))
            return false;
    }
    return true;
}

} // namespace client
