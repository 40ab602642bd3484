#pragma once

#include <string>
#include <vector>

namespace cli {

/// What the word at the cursor may become.
struct Candidate {
    std::string word;
    bool isWhole = true; ///< nothing can follow in the same word
};

/// @param words  what stands behind the program's name, without quotes; the last one, which may be
///               empty, is the one to complete
/// @return the candidates that begin like it; none where the supplicant would have to be asked and
///         does not answer
std::vector<Candidate> candidatesFor(const std::vector<std::string>& words);

/// Whether these arguments ask for completion: "--complete WORD...", which is between the program
/// and completion.bash.
bool isCompletion(int count, char* const arguments[]);

/// Prints the candidates, one a line, a blank behind those that are whole.
/// @return the program's exit status
int complete(int count, char* const arguments[]);

} // namespace cli
