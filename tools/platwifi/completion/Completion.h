#pragma once

#include "completion/Candidates.h"

#include <string>
#include <vector>

namespace cli {

/// Completes a word of a command line.
/// @param words  the words behind the program's name, without quotes, up to the cursor; the last one,
///               which may be empty, is the one to complete
/// @return the candidates that begin with the last word; no networks and no interfaces if the supplicant
///         does not answer
Candidates candidatesFor(const std::vector<std::string>& words);

/// @return whether these arguments of main() ask for completion: "--complete WORD...", as
///         the scripts for the shells do
bool isCompletion(int count, char* const arguments[]);

/// Prints the candidates, one a line, with a blank behind those that are whole.
/// @return the exit status of the program
int complete(int count, char* const arguments[]);

} // namespace cli
