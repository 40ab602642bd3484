#pragma once

#include <string>
#include <vector>

namespace test {

using Lines = std::vector<std::string>;

/// How a program of the host ended, and what it printed on standard output and standard error.
struct HostCommand {
    /// Runs a command line of the shell and waits for its end.
    /// @throws std::runtime_error where no shell can be started
    explicit HostCommand(const std::string& commandLine);

    int status; ///< as waitpid() tells it: 0 is success
    Lines lines;
};

/// The lines of a text file; none where it cannot be read.
Lines linesOfFile(const std::string& path);

} // namespace test
