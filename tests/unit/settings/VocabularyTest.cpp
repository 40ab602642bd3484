#include "model/Vocabulary.h"

#include "supplicant/Reply.h"
#include "support/WordTable.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

using namespace platwifi;

namespace test {
namespace {

const std::map<Field, Words> TABLES = {
    {Field::KEY_MANAGEMENT, KEY_MANAGEMENT_WORDS},
    {Field::PROTOCOL, PROTOCOL_WORDS},
    {Field::AUTH_ALG, AUTH_ALG_WORDS},
    {Field::PAIRWISE_CIPHERS, PAIRWISE_WORDS},
    {Field::GROUP_CIPHERS, GROUP_WORDS},
    {Field::EAP_MODES, EAP_WORDS},
};

// Each row once, in any order.
void expectRows(Words words, const WordRows& rows) {
    EXPECT_EQ(static_cast<std::size_t>(words.end() - words.begin()), rows.size());
    for (const WordRow& row : rows) {
        const Word& word = platwifi::rowOf(words, row.number); // throws where there is none
        EXPECT_STREQ(word.text, row.word);
        EXPECT_STREQ(word.dumpText, row.dumpWord);
    }
}

TEST(Vocabulary, HasEveryWordBesideItsNumber) {
    for (const auto& [field, words] : TABLES) {
        WordRows rows = wordsOf(field);
        const auto todays = todaysWords().find(field);
        if (todays != todaysWords().end())
            rows.insert(rows.end(), todays->second.begin(), todays->second.end());
        expectRows(words, rows);
    }
    expectRows(STATE_WORDS, stateWords());
}

TEST(Vocabulary, HasTheWordsOfTheDumpForModes) {
    for (const WordRow& row : wordsOf(Field::NETWORK_MODE))
        EXPECT_STREQ(textFor(MODE_WORDS, row.number, nullptr), row.dumpWord);
}

TEST(Vocabulary, HasNoWordForAnyOtherNumber) {
    for (const auto& [field, words] : TABLES) {
        for (const unsigned int number : {0U, 0x8000U}) {
            EXPECT_EQ(wordFor(words, number), nullptr);
            EXPECT_STREQ(textFor(words, number, "none"), "none");
            EXPECT_THROW(platwifi::rowOf(words, number), std::out_of_range);
        }
    }
}

TEST(Vocabulary, HasTheStatesOfTheDriverAndTheCommandLine) {
    for (const WordRow& row : stateWords()) {
        EXPECT_EQ(stateIn(row.word), row.number) << row.word;
        EXPECT_STREQ(stateText(row.number), row.word);
    }
    for (const unsigned int other : {0U, 9U})
        EXPECT_STREQ(stateText(other), "UNKNOWN") << other;
}

} // namespace
} // namespace test
