#pragma once

#include <string>
#include <vector>

namespace test {

using Lines = std::vector<std::string>;

/// The exit status of a program of the host, and what it printed on standard output and standard error.
struct HostCommand {
    /// Runs a command line by the shell and waits until it has ended.
    /// @throws std::runtime_error if no shell can be started
    explicit HostCommand(const std::string& commandLine);

    int status; ///< as from waitpid(): 0 is success
    Lines lines;
};

/// The lines of a text file; none if it cannot be read.
Lines linesOfFile(const std::string& path);

} // namespace test
