#pragma once

#include <string>
#include <vector>

namespace bench {

using Arguments = std::vector<std::string>;

/// The host's client, where the library finds it.
extern const char* const CLIENT;

enum class Wait {
    ForTheEnd,     ///< in the system, which tells when a child has ended
    InPausesOf50Ms ///< looking again and again
};

/// What a command costs at least: starts a program with its output going to a new file, waits for its
/// end, reads the file and removes it.
/// @param arguments  those after the program's name
/// @return what it printed
/// @throws std::runtime_error where it cannot be started, or ends with another status than 0
std::string runBare(const std::string& program, const Arguments& arguments,
                    Wait wait = Wait::ForTheEnd);

} // namespace bench
