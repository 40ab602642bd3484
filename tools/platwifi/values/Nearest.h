#pragma once

#include <string>
#include <vector>

namespace cli {

/// The known word that the user probably means by an unknown one: a word that begins with it, or the one
/// with the fewest letters left out, added, replaced or swapped with their neighbour, which are at most one
/// letter in three, and three in all. Small and capital letters are equal.
/// @return the first of the nearest words; "" if none is near
std::string nearest(const std::string& word, const std::vector<std::string>& words);

/// @return " (did you mean WORD?)", to be put behind the unknown word in a message; "" if none is near
std::string didYouMean(const std::string& word, const std::vector<std::string>& words);

/// @return the words with ", " between two
std::string listOf(const std::vector<std::string>& words);

} // namespace cli
