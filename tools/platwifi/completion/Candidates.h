#pragma once

#include <string>
#include <vector>

namespace cli {

/// A word that the user may mean.
struct Candidate {
    std::string word;
    bool isWhole = true; ///< false if the word goes on behind this text, as behind "psk="
};

using Candidates = std::vector<Candidate>;

/// The commands and their aliases.
Candidates commandWords();

/// The options of a command; for "" those that may stand before one.
Candidates options(const std::string& command);

/// The interfaces that the supplicant lists, each behind the prefix.
Candidates interfaces(const std::string& prefix);

/// The networks of the first interface that can be typed.
/// @param allowsOptions  whether a word that begins with a hyphen is an option; then SSIDs that begin
///                       with one are left out
Candidates networks(bool allowsOptions);

/// The names of properties; if the word has a "=", the values of the property before it, each with that
/// name.
Candidates assignments(const std::string& word);

} // namespace cli
