// Whatever reads or writes a word takes it from the one table of its kind.

#include "SaveFields.h"

#include "model/Vocabulary.h"
#include "settings/replies/ValueWords.h"
#include "settings/report/DumpWords.h"
#include "supplicant/Reply.h"

#include <set>

using namespace platwifi;
using namespace test;
using testing::Each;
using testing::ElementsAre;
using N = WifiNetwork;

namespace {

struct Kind {
    const char* key; // of the supplicant
    Words words;
    bool (N::*set)(unsigned int);
    unsigned int (*load)(const char* value);
    std::string (*dump)(unsigned int number);
    bool isSet; // of flags
};

const Kind KINDS[] = {
    {"key_mgmt", KEY_MANAGEMENT_WORDS, &N::setKeyManagement, keyManagementIn, keyManagementWords,
     true},
    {"proto", PROTOCOL_WORDS, &N::setProtocol, protocolsIn, protocolWords, true},
    {"auth_alg", AUTH_ALG_WORDS, &N::setAuthAlg, authAlgIn, authAlgWord, false},
    {"pairwise", PAIRWISE_WORDS, &N::setPairwiseCiphers, pairwiseCiphersIn, pairwiseWords, true},
    {"group", GROUP_WORDS, &N::setGroupCiphers, groupCiphersIn, groupWords, true},
    {"eap", EAP_WORDS, &N::setEapModes, eapModeIn, eapModeWords, true},
};

// Runs `check` for each word of each kind.
template <typename Check>
void forEachWord(Check check) {
    for (const Kind& kind : KINDS) {
        for (const Word& word : kind.words) {
            SCOPED_TRACE(std::string(kind.key) + " " + word.text);
            check(kind, word);
        }
    }
}

// No number, no word and no word of the dump stands twice.
void expectOneNumberAWord(Words words, const std::string& kind) {
    std::set<unsigned int> numbers;
    std::set<std::string> texts;
    std::set<std::string> dumpTexts;
    for (const Word& word : words) {
        numbers.insert(word.number);
        texts.insert(word.text);
        dumpTexts.insert(word.dumpText);
    }
    const auto rows = static_cast<std::size_t>(words.end() - words.begin());
    EXPECT_THAT((std::vector<std::size_t>{numbers.size(), texts.size(), dumpTexts.size()}),
                Each(rows))
        << kind;
}

TEST(Vocabulary, HasOneNumberForAWordAndOneWordForANumber) {
    for (const Kind& kind : KINDS)
        expectOneNumberAWord(kind.words, kind.key);
    expectOneNumberAWord(MODE_WORDS, "modes");
    expectOneNumberAWord(STATE_WORDS, "states");
}

TEST(Vocabulary, HasFlagsForWordsThatMakeUpASet) {
    forEachWord([](const Kind& kind, const Word& word) {
        const bool isOneFlag = (word.number & (word.number - 1)) == 0;
        EXPECT_TRUE(isOneFlag || !kind.isSet);
    });
}

TEST(Vocabulary, HasNoWordForAnyOtherNumber) {
    for (const Kind& kind : KINDS) {
        EXPECT_EQ(wordFor(kind.words, 0), nullptr) << kind.key;
        EXPECT_EQ(wordFor(kind.words, 0x8000), nullptr) << kind.key;
        EXPECT_STREQ(textFor(kind.words, 0, "none"), "none") << kind.key;
        EXPECT_THROW(rowOf(kind.words, 0), std::out_of_range) << kind.key;
    }
}

TEST_F(SaveFields, WriteTheWordThatALoadReads) {
    forEachWord([this](const Kind& kind, const Word& word) {
        const auto edit = [&](WifiNetwork& edited) { (edited.*kind.set)(word.number); };
        EXPECT_EQ(wordFor(kind.words, word.number), &word);
        EXPECT_THAT(saveAfter(edit), ElementsAre(setNetwork(kind.key, word.text)));
        EXPECT_EQ(kind.load(word.text), word.number);
    });
}

TEST(Vocabulary, HasTheWordsOfTheDump) {
    forEachWord([](const Kind& kind, const Word& word) {
        EXPECT_EQ(kind.dump(word.number), std::string(" ") + word.dumpText);
    });
    for (const Word& mode : MODE_WORDS)
        EXPECT_EQ(networkModeWord(mode.number), std::string(" ") + mode.dumpText);
}

TEST(Vocabulary, HasTheStatesOfTheDriverTheDumpAndTheCommandLine) {
    for (const Word& state : STATE_WORDS) {
        EXPECT_EQ(stateIn(state.text), state.number) << state.text;
        EXPECT_EQ(wpaStateWord(state.number), std::string(" ") + state.dumpText);
        EXPECT_STREQ(stateText(state.number), state.text);
    }
    for (const unsigned int other : {0U, 9U})
        EXPECT_STREQ(stateText(other), "UNKNOWN") << other;
}

} // namespace
