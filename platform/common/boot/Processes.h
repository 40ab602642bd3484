#pragma once

namespace boot {

/// Prints the processes of this system with their arguments, one a line: "pid argument argument ...".
/// @return whether it could; if not, it has printed the cause to standard error
bool printProcesses() noexcept;

} // namespace boot
