#include "values/Nearest.h"

#include "values/Texts.h"

#include <algorithm>
#include <cstddef>

namespace cli {
namespace {

constexpr std::size_t LETTERS_PER_MISTAKE = 3;
constexpr std::size_t MAX_MISTAKES = 3;
constexpr std::size_t MIN_ABBREVIATION = 3;

// Row i, column j: how far the first i letters of one word are from the first j of the other.
using Distances = std::vector<std::vector<std::size_t>>;

std::size_t longerSize(const std::string& one, const std::string& other) {
    return std::max(one.size(), other.size());
}

std::size_t limitFor(const std::string& word, const std::string& known) {
    return std::min(longerSize(word, known) / LETTERS_PER_MISTAKE, MAX_MISTAKES);
}

std::string inSmallLetters(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

bool isSwapped(const std::string& from, const std::string& to, std::size_t i, std::size_t j) {
    return i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
}

std::size_t nextDistance(const Distances& known, const std::string& from, const std::string& to,
                         std::size_t i, std::size_t j) {
    if (i == 0 || j == 0)
        return i + j;
    const std::size_t replaced = known[i - 1][j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
    const std::size_t fewest = std::min({known[i - 1][j] + 1, known[i][j - 1] + 1, replaced});
    return isSwapped(from, to, i, j) ? std::min(fewest, known[i - 2][j - 2] + 1) : fewest;
}

// The distance of Damerau and Levenshtein in which no letter is changed twice.
std::size_t distance(const std::string& from, const std::string& to) {
    Distances distances(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
    for (std::size_t i = 0; i <= from.size(); ++i) {
        for (std::size_t j = 0; j <= to.size(); ++j)
            distances[i][j] = nextDistance(distances, from, to, i, j);
    }
    return distances.back().back();
}

bool isAbbreviation(const std::string& word, const std::string& known) {
    return word.size() >= MIN_ABBREVIATION && beginsWith(known, word);
}

std::size_t mistakesIn(const std::string& word, const std::string& known) {
    return isAbbreviation(word, known) ? 0 : distance(word, known);
}

// Whether the lengths alone keep the words apart; so an argument of any length costs no time.
bool isFar(const std::string& word, const std::string& known) {
    return word.size() > known.size() + MAX_MISTAKES;
}

} // namespace

std::string nearest(const std::string& word, const std::vector<std::string>& words) {
    const std::string* best = nullptr;
    std::size_t fewest = MAX_MISTAKES + 1;
    for (const std::string& known : words) {
        if (isFar(word, known))
            continue;
        const std::size_t mistakes = mistakesIn(inSmallLetters(word), inSmallLetters(known));
        if (mistakes < fewest && mistakes <= limitFor(word, known)) {
            best = &known;
            fewest = mistakes;
        }
    }
    return best ? *best : "";
}

std::string didYouMean(const std::string& word, const std::vector<std::string>& words) {
    const std::string known = nearest(word, words);
    return known.empty() ? "" : " (did you mean " + known + "?)";
}

std::string listOf(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

} // namespace cli
