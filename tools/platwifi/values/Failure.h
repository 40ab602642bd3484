#pragma once

#include <stdexcept>
#include <string>

namespace cli {

/// Exit statuses of the program. Those of a connection that fails are in values/Cause.h.
enum Status : int {
    DONE = 0,
    FAILED = 1,    ///< the command failed: the message has the cause and the next step
    WRONG_USE = 2, ///< the command line itself is wrong
};

/// A command cannot do its work. The message is one line with the cause and the next step.
struct Failure : std::runtime_error {
    explicit Failure(const std::string& message, int exitStatus = FAILED)
        : std::runtime_error(message), status(exitStatus) {}

    int status; ///< exit status of the program
};

/// The command line is wrong on every host.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The user has ended the command by a signal.
struct Interrupted {
    int signal;
    std::string message = "interrupted";
};

} // namespace cli
