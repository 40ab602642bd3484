#pragma once

#include "model/Field.h"

#include <map>
#include <vector>

namespace test {

/// A number, and the words for it.
struct WordRow {
    unsigned int number;
    const char* word;            ///< of the supplicant
    const char* dumpWord = word; ///< of the dump
};

using WordRows = std::vector<WordRow>;

/// The words of every field whose numbers have words, as the profile "device" knows them, in the order in which the dump prints them. Tests of
/// loading, saving and the dump run over these rows.
const std::map<platwifi::Field, WordRows>& fieldWords();

/// The words that only the profile "modern" knows.
const std::map<platwifi::Field, WordRows>& todaysWords();

/// The words of one field; none where its numbers have no words.
const WordRows& wordsOf(platwifi::Field field);

/// The words of the supplicant's states. An unknown state has none.
const WordRows& stateWords();

/// Whether the numbers of the field are sets, with a flag for each word.
bool isSet(platwifi::Field field);

} // namespace test
