#pragma once

#include "Console.h"
#include "Interrupt.h"
#include "Request.h"

namespace cli {

/// What every command is given.
struct Context {
    const Request& request;
    Interrupt& interrupt;
    Console out;           ///< standard output
    Console err;           ///< standard error
    bool hasSaved = false; ///< set by a command that has saved: other processes must hear of it
};

} // namespace cli
