#pragma once

namespace cli {

/// Notifies the other processes with the library that the configuration was saved, then ends this
/// process. It does so by executing this program again as a notifier (see runNotifier()): the refresh
/// thread of this process would take the signal before any other process does.
/// @param arguments  of main()
/// @param status     exit status of the process; negative for the signal that ends it
/// Returns where no other process uses the library, or where the program cannot be executed.
void notifyOtherProcesses(char* const arguments[], int status);

/// @return whether these arguments of main() are those of a notifier
bool isNotifier(int count, char* const arguments[]);

/// Raises the refresh signal and ends the process with the status among the arguments.
[[noreturn]] void runNotifier(char* const arguments[]);

} // namespace cli
