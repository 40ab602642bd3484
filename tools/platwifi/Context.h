#pragma once

#include "Failure.h"
#include "Request.h"
#include "display/Console.h"
#include "process/Interrupt.h"

namespace cli {

/// What every command is given.
struct Context {
    const Request& request;
    Interrupt& interrupt;
    Console out;           ///< standard output
    Console err;           ///< standard error
    bool hasSaved = false; ///< set by a command that has saved: other processes must hear of it
    Status status = DONE;  ///< set by a command that has done its work and found something wrong
};

} // namespace cli
