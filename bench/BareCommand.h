#pragma once

#include <string>
#include <vector>

namespace bench {

using Arguments = std::vector<std::string>;

// HOST_CLIENT and QUICK_CLIENT are the paths of the host's client and of the client that the library runs.

enum class Wait {
    ForTheEnd,     ///< by a system call that returns when the child has ended
    InPausesOf50Ms ///< by polling
};

/// The least work of a command: starts a program with its output in a new file, waits until it has ended,
/// reads the file and removes it.
/// @param arguments  the arguments after the program's name
/// @return the output
/// @throws std::runtime_error if the program cannot be started, or its exit status is not 0
std::string runBare(const std::string& program, const Arguments& arguments,
                    Wait wait = Wait::ForTheEnd);

} // namespace bench
