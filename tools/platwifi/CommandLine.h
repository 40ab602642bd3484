#pragma once

namespace cli {

/// Reads the arguments, runs the command that they name, and tells what went wrong.
/// @return the program's exit status
int runCommandLine(int count, char* arguments[]);

} // namespace cli
