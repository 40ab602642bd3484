#include "values/Nearest.h"

#include <gmock/gmock.h>

namespace {

const std::vector<std::string> WORDS = {"adapters", "networks", "scan",       "show", "set",
                                        "rm",       "connect",  "disconnect", "roam", "--json"};

std::string nearest(const std::string& word) {
    return cli::nearest(word, WORDS);
}

} // namespace

TEST(Nearest, FindsOneMistakeOfEachKind) {
    EXPECT_EQ(nearest("scn"), "scan") << "left out";
    EXPECT_EQ(nearest("scaan"), "scan") << "added";
    EXPECT_EQ(nearest("scam"), "scan") << "replaced";
    EXPECT_EQ(nearest("sacn"), "scan") << "swapped with its neighbour";
    EXPECT_EQ(nearest("--jsno"), "--json");
}

TEST(Nearest, AllowsOneMistakeInThreeLetters) {
    EXPECT_EQ(nearest("nxtwxrks"), "networks") << "two in eight letters";
    EXPECT_EQ(nearest("nxtwxrkx"), "") << "three in eight";
    EXPECT_EQ(nearest("disxxxnect"), "disconnect");
    EXPECT_EQ(nearest("dixxxxnect"), "") << "four mistakes are too many for a word of any length";
    EXPECT_EQ(nearest("scxx"), "");
    EXPECT_EQ(nearest("rn"), "") << "any other word of two letters would be as near";
}

TEST(Nearest, CountsASwapAsOneMistake) {
    EXPECT_EQ(cli::nearest("abdc", {"abcd"}), "abcd");
    EXPECT_EQ(cli::nearest("badc", {"abcd"}), "") << "two swaps in four letters";
}

TEST(Nearest, PrefersFewerMistakesAndThenTheFirstWord) {
    EXPECT_EQ(cli::nearest("abcd", {"abxxcd", "abxcd"}), "abxcd");
    EXPECT_EQ(cli::nearest("abcd", {"abcx", "abcy"}), "abcx");
}

TEST(Nearest, TakesABeginningForTheWholeWord) {
    EXPECT_EQ(nearest("net"), "networks") << "and not set, which has one other letter";
    EXPECT_EQ(nearest("Dis"), "disconnect");
    EXPECT_EQ(nearest("ad"), "") << "too short";
}

TEST(Nearest, TakesCapitalLettersForSmallOnes) {
    EXPECT_EQ(nearest("SCAN"), "scan");
    EXPECT_EQ(cli::nearest("eapidentiy", {"eapIdentity"}), "eapIdentity");
}

TEST(Nearest, FindsNothingForWhatIsUnlikeAllWords) {
    EXPECT_EQ(nearest("wireless"), "");
    EXPECT_EQ(nearest(""), "");
    EXPECT_EQ(nearest(std::string(1000000, 's')), "");
    EXPECT_EQ(cli::nearest("scan", {}), "");
}

TEST(Nearest, IsAQuestionBehindTheWord) {
    EXPECT_EQ(cli::didYouMean("scna", WORDS), " (did you mean scan?)");
    EXPECT_EQ(cli::didYouMean("wireless", WORDS), "");
}

TEST(ListOfWords, HasACommaBetweenTwo) {
    EXPECT_EQ(cli::listOf({"one", "two", "three"}), "one, two, three");
    EXPECT_EQ(cli::listOf({"one"}), "one");
    EXPECT_EQ(cli::listOf({}), "");
}
