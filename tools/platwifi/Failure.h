#pragma once

#include <stdexcept>
#include <string>

namespace cli {

/// Exit statuses of the program.
enum Status : int {
    DONE = 0,
    FAILED = 1,    ///< it did not work: the message says why, and what to do
    WRONG_USE = 2, ///< the command line itself is not right
};

/// Something that keeps a command from doing its work: one line with the cause and the next step.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A command line that no system could carry out.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The user has ended the command by a signal.
struct Interrupted {
    int signal;
    std::string message = "interrupted";
};

} // namespace cli
