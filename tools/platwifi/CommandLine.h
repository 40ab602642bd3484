#pragma once

namespace cli {

/// Reads the arguments of main(), runs the command, and prints an error message if it fails.
/// @return the exit status of the program
int runCommandLine(int count, char* arguments[]);

} // namespace cli
