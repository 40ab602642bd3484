#pragma once

#include "Context.h"

#include <string>
#include <vector>

namespace cli {

/// What a command takes besides the interface.
enum Takes : unsigned int {
    SSID = 0x1,
    MAYBE_SSID = 0x2,
    ASSIGNMENTS = 0x4,
    MAYBE_ASSIGNMENTS = 0x8,
    PATIENCE = 0x10,
    FULL = 0x20,
    JSON = 0x40,
    NEW_SSID = 0x80, ///< with SSID: one that is not configured yet
};

struct Command {
    const char* name;
    unsigned int takes; ///< a set of Takes
    void (*run)(Context& context);
    const char* help;
    std::string (*more)(); ///< what stands at the end of its help
};

/// All of them, in the order in which the help lists them.
const std::vector<Command>& commands();

inline bool has(const Command& command, Takes what) {
    return (command.takes & what) != 0;
}

/// What stands at the end of the program's own help.
std::string generalHelp();

} // namespace cli
