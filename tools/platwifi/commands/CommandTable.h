#pragma once

#include <string>
#include <vector>

namespace cli {

struct Context;

/// What a command takes besides the interface.
enum Takes : unsigned int {
    SSID = 0x1,
    OPTIONAL_SSID = 0x2,
    ASSIGNMENTS = 0x4,
    OPTIONAL_ASSIGNMENTS = 0x8,
    TIMEOUT = 0x10,
    FULL = 0x20,
    JSON = 0x40,
    NEW_SSID = 0x80, ///< with SSID: one that is not configured yet
    HIDDEN = 0x100,
    EAP = 0x200,
    SORT = 0x400,
    TOPIC = 0x800, ///< the name of a command, or none
    NO_INTERFACE = 0x1000,
};

struct Command {
    const char* name;
    unsigned int takes; ///< a set of Takes
    void (*run)(Context& context);
    const char* help;
    std::string (*epilogue)();   ///< the end of its help
    const char* alias = nullptr; ///< another name
};

/// All commands, in the order in which the help lists them.
const std::vector<Command>& commands();

inline bool has(const Command& command, Takes what) {
    return (command.takes & what) != 0;
}

/// The end of the program's own help.
std::string generalEpilogue();

} // namespace cli
